// The terminal of a POSIX machine.
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>

#include "terminal.h"
#include "terminal_palette.h"

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

namespace {

// Reads the terminal's answers to the questions just sent, up to the
// answer to the last one (its attributes, "\x1b[?...c", which every
// terminal gives) or for a fifth of a second at most.
std::string ReadAnswers(int fd) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(200);
  std::string answers;
  for (;;) {
    const std::size_t attributes = answers.find("\x1b[?");
    if (attributes != std::string::npos && answers.find('c', attributes) != std::string::npos) break;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd ready{fd, POLLIN, 0};
    if (left.count() <= 0 || poll(&ready, 1, static_cast<int>(left.count())) <= 0) break;
    char chunk[256];
    const ssize_t got = read(fd, chunk, sizeof chunk);
    if (got <= 0) break;
    answers.append(chunk, static_cast<std::size_t>(got));
  }
  return answers;
}

}  // namespace

std::optional<Rgb> AskTerminalBackground() {
  const int fd = open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY);
  if (fd < 0) return std::nullopt;
  std::string answers;
  termios saved{};
  // A program in the background would be stopped for touching the terminal.
  if (tcgetpgrp(fd) == getpgrp() && tcgetattr(fd, &saved) == 0) {
    termios quiet = saved;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    quiet.c_cc[VMIN] = 0;
    quiet.c_cc[VTIME] = 0;
    if (tcsetattr(fd, TCSANOW, &quiet) == 0) {
      // The background colour, then the attributes, which end the answers.
      constexpr std::string_view kQuestions = "\x1b]11;?\x1b\\\x1b[c";
      if (write(fd, kQuestions.data(), kQuestions.size()) == static_cast<ssize_t>(kQuestions.size())) {
        answers = ReadAnswers(fd);
      }
      tcsetattr(fd, TCSANOW, &saved);
    }
  }
  close(fd);
  return BackgroundInAnswer(answers);
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

}  // namespace tessaly::cli
