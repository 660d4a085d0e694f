#ifndef TESSALY_PLATFORM_MEMORY_RECORDING_SHELL_H_
#define TESSALY_PLATFORM_MEMORY_RECORDING_SHELL_H_

#include <cstdint>
#include <vector>

#include "platform/shell.h"

namespace tessaly {

// A shell that starts nothing: it records each request and gives the
// answer the test set (by default 42, an accepted request).
class RecordingShell : public Shell {
 public:
  void SetAnswer(std::int32_t answer) { answer_ = answer; }

  std::int32_t Execute(const ShellRequest& request) override {
    requests_.push_back(request);
    return answer_;
  }

  const std::vector<ShellRequest>& requests() const { return requests_; }

 private:
  std::int32_t answer_ = 42;
  std::vector<ShellRequest> requests_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_RECORDING_SHELL_H_
