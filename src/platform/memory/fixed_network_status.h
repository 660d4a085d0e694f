#ifndef TESSALY_PLATFORM_MEMORY_FIXED_NETWORK_STATUS_H_
#define TESSALY_PLATFORM_MEMORY_FIXED_NETWORK_STATUS_H_

#include <cstdint>
#include <optional>

#include "platform/network_status.h"

namespace tessaly {

// A connection state set by the test; by default not connected.
class FixedNetworkStatus : public NetworkStatus {
 public:
  void Set(std::optional<std::uint32_t> flags) { flags_ = flags; }
  std::optional<std::uint32_t> ConnectedState() override { return flags_; }

 private:
  std::optional<std::uint32_t> flags_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_FIXED_NETWORK_STATUS_H_
