#ifndef TESSALY_PLATFORM_MEMORY_REQUESTED_STOPS_H_
#define TESSALY_PLATFORM_MEMORY_REQUESTED_STOPS_H_

#include "platform/stop_requests.h"

namespace tessaly {

// Stop requests the test makes itself; none until it calls Request.
class RequestedStops : public StopRequests {
 public:
  void Request(int exitStatus = 130) { exitStatus_ = exitStatus; }
  bool Requested() const override { return exitStatus_ != 0; }
  int ExitStatus() const override { return exitStatus_; }

 private:
  int exitStatus_ = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_REQUESTED_STOPS_H_
