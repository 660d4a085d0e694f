#ifndef TESSALY_PLATFORM_POSIX_SIGNAL_STOP_REQUESTS_H_
#define TESSALY_PLATFORM_POSIX_SIGNAL_STOP_REQUESTS_H_

#include <signal.h>

#include <array>

#include "platform/stop_requests.h"

namespace tessaly {

// SIGINT (Ctrl+C), SIGTERM and SIGHUP as requests to stop, for as long as
// it lives. The first of them is noted and gives each of the three its
// default action back, so another one ends the program at once. A signal
// ignored when it is made (as nohup leaves SIGHUP) stays ignored. System
// calls that a signal interrupts are restarted. One at a time: the
// signals are the process's.
class SignalStopRequests : public StopRequests {
 public:
  SignalStopRequests();
  SignalStopRequests(const SignalStopRequests&) = delete;
  SignalStopRequests& operator=(const SignalStopRequests&) = delete;
  // The actions there were before come back.
  ~SignalStopRequests() override;

  bool Requested() const override;
  int ExitStatus() const override;

 private:
  std::array<struct sigaction, 3> before_{};
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_SIGNAL_STOP_REQUESTS_H_
