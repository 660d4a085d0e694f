#include "terminal.h"

#include <fcntl.h>
#include <unistd.h>

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

TerminalPerson::~TerminalPerson() {
  if (!ownsTty_) return;
  std::fclose(in_);
  std::fclose(out_);
}

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

bool TerminalPerson::Reachable() {
  Open();
  return in_ != nullptr;
}

std::optional<std::string> TerminalPerson::Ask(std::string_view prompt) {
  if (!Reachable()) return std::nullopt;
  std::fwrite(prompt.data(), 1, prompt.size(), out_);
  std::fflush(out_);
  std::string line;
  for (int c = std::fgetc(in_); c != '\n'; c = std::fgetc(in_)) {
    if (c == EOF) {
      if (line.empty()) return std::nullopt;
      break;
    }
    line += static_cast<char>(c);
  }
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

}  // namespace tessaly::cli
