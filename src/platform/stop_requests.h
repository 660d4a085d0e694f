#ifndef TESSALY_PLATFORM_STOP_REQUESTS_H_
#define TESSALY_PLATFORM_STOP_REQUESTS_H_

namespace tessaly {

// Requests from outside the program to stop (Ctrl+C, a termination signal,
// the console closing). They are only noted when they come; the work asks
// between pieces that must not be cut in two, and ends there.
// Abstract so tests can ask for a stop at a moment of their choosing; the
// real ones are SignalStopRequests and ConsoleStopRequests.
class StopRequests {
 public:
  virtual ~StopRequests() = default;

  // Whether a stop has been asked for.
  virtual bool Requested() const = 0;

  // The status a program ended by the request exits with, by the shell's
  // custom 128 plus the signal's number: 130 for Ctrl+C, 143 for a
  // termination request, 129 for a hang-up. 0 while none was asked for.
  virtual int ExitStatus() const = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_STOP_REQUESTS_H_
