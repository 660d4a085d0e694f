#include "system/connection_state.h"

#include <gtest/gtest.h>

#include "platform/memory/fixed_network_status.h"

namespace tessaly {
namespace {

TEST(ConnectionStateTest, FlagsBecomeItemsInFixedOrder) {
  using namespace connection;
  struct Case {
    std::optional<std::uint32_t> flags;
    const char* state;
  };
  const Case cases[] = {
      {std::nullopt, "Not Connected"},
      {0, ""},
      {kModem, "Modem;"},
      {kLan, "LAN;"},
      {kModemBusy | kModem, "Modem;ModemBusy;"},
      {kModem | kLan | kProxy | kModemBusy, "Modem;LAN;Proxy;ModemBusy;"},
      // Flags beyond the four are not told of.
      {0x20 | kLan, "LAN;"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.state);
    FixedNetworkStatus network;
    network.Set(c.flags);
    EXPECT_EQ(ConnectionState(network), c.state);
  }
}

}  // namespace
}  // namespace tessaly
