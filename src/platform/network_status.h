#ifndef TESSALY_PLATFORM_NETWORK_STATUS_H_
#define TESSALY_PLATFORM_NETWORK_STATUS_H_

#include <cstdint>
#include <optional>

namespace tessaly {

// Flags of the system's view of the connection.
namespace connection {
inline constexpr std::uint32_t kModem = 1;
inline constexpr std::uint32_t kLan = 2;
inline constexpr std::uint32_t kProxy = 4;
inline constexpr std::uint32_t kModemBusy = 8;
}  // namespace connection

// The system's view of the network connection; nothing is sent anywhere.
class NetworkStatus {
 public:
  virtual ~NetworkStatus() = default;
  // The connection flags, or nothing when the system says it is not
  // connected or cannot tell.
  virtual std::optional<std::uint32_t> ConnectedState() = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_NETWORK_STATUS_H_
