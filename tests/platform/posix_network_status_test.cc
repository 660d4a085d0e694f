#include "platform/posix/posix_network_status.h"

#include <arpa/inet.h>
#include <net/if.h>
#include <netinet/in.h>

#include <gtest/gtest.h>

#include <deque>

namespace tessaly {
namespace {

constexpr unsigned kUpRunning = IFF_UP | IFF_RUNNING;

// Builds interface lists the way getifaddrs links them.
class InterfaceList {
 public:
  InterfaceList& Add(const char* name, unsigned flags, const char* address) {
    ifaddrs& entry = entries_.emplace_back();
    entry.ifa_name = const_cast<char*>(name);
    entry.ifa_flags = flags;
    sockaddr_storage& storage = addresses_.emplace_back();
    if (address == nullptr) {
      entry.ifa_addr = nullptr;
    } else if (inet_pton(AF_INET, address, &reinterpret_cast<sockaddr_in&>(storage).sin_addr)) {
      storage.ss_family = AF_INET;
      entry.ifa_addr = reinterpret_cast<sockaddr*>(&storage);
    } else if (inet_pton(AF_INET6, address, &reinterpret_cast<sockaddr_in6&>(storage).sin6_addr)) {
      storage.ss_family = AF_INET6;
      entry.ifa_addr = reinterpret_cast<sockaddr*>(&storage);
    } else {
      storage.ss_family = AF_UNSPEC;  // a link-layer entry
      entry.ifa_addr = reinterpret_cast<sockaddr*>(&storage);
    }
    if (entries_.size() > 1) entries_[entries_.size() - 2].ifa_next = &entry;
    return *this;
  }
  const ifaddrs* head() const { return entries_.empty() ? nullptr : &entries_.front(); }

 private:
  std::deque<ifaddrs> entries_;  // a deque keeps the links valid
  std::deque<sockaddr_storage> addresses_;
};

TEST(PosixNetworkStatusTest, OnlyAnUpNonLoopbackInterfaceWithARealAddressIsLan) {
  const struct {
    const char* what;
    unsigned flags;
    const char* address;
    bool lan;
  } cases[] = {
      {"ethernet with IPv4", kUpRunning, "192.168.1.5", true},
      {"ethernet with global IPv6", kUpRunning, "2001:db8::7", true},
      {"loopback", kUpRunning | IFF_LOOPBACK, "127.0.0.1", false},
      {"down", IFF_RUNNING, "192.168.1.5", false},
      {"up without link", IFF_UP, "192.168.1.5", false},
      {"link-local IPv4 only", kUpRunning, "169.254.10.2", false},
      {"no address", kUpRunning, nullptr, false},
      {"link layer entry", kUpRunning, "link", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    InterfaceList list;
    list.Add("if0", c.flags, c.address);
    EXPECT_EQ(ConnectionFlagsOf(list.head()),
              c.lan ? std::optional<std::uint32_t>(connection::kLan) : std::nullopt);
  }
}

TEST(PosixNetworkStatusTest, AnyInterfaceOfTheListCounts) {
  InterfaceList list;
  list.Add("lo", kUpRunning | IFF_LOOPBACK, "127.0.0.1")
      .Add("eth0", kUpRunning, "link")
      .Add("eth0", kUpRunning, "fe80::2")
      .Add("eth0", kUpRunning, "10.0.0.3");
  EXPECT_EQ(ConnectionFlagsOf(list.head()), connection::kLan);
  EXPECT_EQ(ConnectionFlagsOf(nullptr), std::nullopt);
}

}  // namespace
}  // namespace tessaly
