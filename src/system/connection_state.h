#ifndef TESSALY_SYSTEM_CONNECTION_STATE_H_
#define TESSALY_SYSTEM_CONNECTION_STATE_H_

#include <string>

#include "platform/network_status.h"

namespace tessaly {

// The system's view of the connection as one text: "Modem;", "LAN;",
// "Proxy;" and "ModemBusy;" for the flags that are set, in that order;
// the empty text when connected with none of them; "Not Connected" when
// the system says it is not connected.
std::string ConnectionState(NetworkStatus& network);

}  // namespace tessaly

#endif  // TESSALY_SYSTEM_CONNECTION_STATE_H_
