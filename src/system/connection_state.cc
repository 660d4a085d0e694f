#include "system/connection_state.h"

#include <cstdint>
#include <string_view>

namespace tessaly {

namespace {

struct FlagItem {
  std::uint32_t flag;
  std::string_view item;
};

constexpr FlagItem kItems[] = {
    {connection::kModem, "Modem"},
    {connection::kLan, "LAN"},
    {connection::kProxy, "Proxy"},
    {connection::kModemBusy, "ModemBusy"},
};

}  // namespace

std::string ConnectionState(NetworkStatus& network) {
  const std::optional<std::uint32_t> flags = network.ConnectedState();
  if (!flags) return "Not Connected";
  std::string state;
  for (const FlagItem& entry : kItems) {
    if ((*flags & entry.flag) != 0) state.append(entry.item).append(";");
  }
  return state;
}

}  // namespace tessaly
