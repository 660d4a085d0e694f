#ifndef TESSALY_PLATFORM_POSIX_UNIQUE_FD_H_
#define TESSALY_PLATFORM_POSIX_UNIQUE_FD_H_

#include <unistd.h>

namespace tessaly {

// A file descriptor, closed when it goes.
class UniqueFd {
 public:
  explicit UniqueFd(int fd) : fd_(fd) {}
  UniqueFd(const UniqueFd&) = delete;
  UniqueFd& operator=(const UniqueFd&) = delete;
  ~UniqueFd() {
    if (fd_ >= 0) close(fd_);
  }
  int get() const { return fd_; }
  explicit operator bool() const { return fd_ >= 0; }

 private:
  int fd_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_UNIQUE_FD_H_
