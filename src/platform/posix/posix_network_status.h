#ifndef TESSALY_PLATFORM_POSIX_POSIX_NETWORK_STATUS_H_
#define TESSALY_PLATFORM_POSIX_POSIX_NETWORK_STATUS_H_

#include <ifaddrs.h>

#include <cstdint>
#include <optional>

#include "platform/network_status.h"

namespace tessaly {

// The connection as the machine's network interfaces show it. There is no
// modem or proxy to tell of here: it is a LAN connection or none.
class PosixNetworkStatus : public NetworkStatus {
 public:
  // The LAN flag, or nothing when no interface counts or the interfaces
  // cannot be listed.
  std::optional<std::uint32_t> ConnectedState() override;
};

// The flags a list of interfaces gives (as getifaddrs links them): the LAN
// flag when one of them is not the loopback, is up with its link running,
// and holds an IPv4 or IPv6 address beyond the link itself (link-local
// addresses come without any network to reach); nothing otherwise.
std::optional<std::uint32_t> ConnectionFlagsOf(const ifaddrs* interfaces);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_POSIX_NETWORK_STATUS_H_
