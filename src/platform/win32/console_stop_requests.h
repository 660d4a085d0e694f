#ifndef TESSALY_PLATFORM_WIN32_CONSOLE_STOP_REQUESTS_H_
#define TESSALY_PLATFORM_WIN32_CONSOLE_STOP_REQUESTS_H_

#include "platform/stop_requests.h"

namespace tessaly {

// Ctrl+C, Ctrl+Break and the closing of the console window as requests to
// stop, for as long as it lives; the exit statuses are those of the
// signals a POSIX shell would send (SIGINT for both keys, SIGHUP for the
// closing). The first one is noted; a second one ends the program at
// once, as a kill would. Windows ends a process whose console closes a few
// seconds after it asks it to stop, finished or not. One at a time: the
// console is the process's.
class ConsoleStopRequests : public StopRequests {
 public:
  ConsoleStopRequests();
  ConsoleStopRequests(const ConsoleStopRequests&) = delete;
  ConsoleStopRequests& operator=(const ConsoleStopRequests&) = delete;
  ~ConsoleStopRequests() override;

  bool Requested() const override;
  int ExitStatus() const override;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_WIN32_CONSOLE_STOP_REQUESTS_H_
