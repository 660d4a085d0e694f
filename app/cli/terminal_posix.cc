// The terminal of a POSIX machine.
#include <fcntl.h>
#include <unistd.h>

#include "terminal.h"

namespace tessaly::cli {

namespace {

void CloseStreamOrFd(std::FILE* stream, int fd) {
  if (stream != nullptr) {
    std::fclose(stream);
  } else if (fd >= 0) {
    close(fd);
  }
}

}  // namespace

bool IsTerminal(int fd) { return isatty(fd) == 1; }

bool PrepareForColour(int) { return true; }

void TerminalPerson::Open() {
  if (opened_) return;
  opened_ = true;
  if (IsTerminal(STDIN_FILENO)) {
    in_ = stdin;
    out_ = stderr;
    return;
  }
  // Fails with no controlling terminal, as under a scheduler or setsid.
  const int fd = open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY);
  if (fd < 0) return;
  // Two streams, since one stream may not turn from reading to writing.
  const int writeFd = fcntl(fd, F_DUPFD_CLOEXEC, 0);
  std::FILE* in = fdopen(fd, "r");
  std::FILE* out = writeFd < 0 ? nullptr : fdopen(writeFd, "w");
  if (in == nullptr || out == nullptr) {
    CloseStreamOrFd(in, fd);
    CloseStreamOrFd(out, writeFd);
    return;
  }
  in_ = in;
  out_ = out;
  ownsTty_ = true;
}

}  // namespace tessaly::cli
