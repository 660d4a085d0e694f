#include "platform/posix/posix_network_status.h"

#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace tessaly {

namespace {

bool IsReachingAddress(const sockaddr* address) {
  if (address == nullptr) return false;
  if (address->sa_family == AF_INET) {
    const auto& ip = reinterpret_cast<const sockaddr_in*>(address)->sin_addr;
    const std::uint32_t host = ntohl(ip.s_addr);
    return host != 0 && (host >> 16) != 0xA9FE;  // 169.254.0.0/16 is link-local
  }
  if (address->sa_family == AF_INET6) {
    const auto& ip = reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr;
    return !IN6_IS_ADDR_UNSPECIFIED(&ip) && !IN6_IS_ADDR_LINKLOCAL(&ip) &&
           !IN6_IS_ADDR_LOOPBACK(&ip);
  }
  return false;  // a link-layer entry, not an address
}

bool CountsAsLan(const ifaddrs& entry) {
  const unsigned flags = entry.ifa_flags;
  return (flags & IFF_LOOPBACK) == 0 && (flags & IFF_UP) != 0 && (flags & IFF_RUNNING) != 0 &&
         IsReachingAddress(entry.ifa_addr);
}

}  // namespace

std::optional<std::uint32_t> ConnectionFlagsOf(const ifaddrs* interfaces) {
  for (const ifaddrs* entry = interfaces; entry != nullptr; entry = entry->ifa_next) {
    if (CountsAsLan(*entry)) return connection::kLan;
  }
  return std::nullopt;
}

std::optional<std::uint32_t> PosixNetworkStatus::ConnectedState() {
  ifaddrs* interfaces = nullptr;
  if (getifaddrs(&interfaces) != 0) return std::nullopt;
  const std::optional<std::uint32_t> flags = ConnectionFlagsOf(interfaces);
  freeifaddrs(interfaces);
  return flags;
}

}  // namespace tessaly
