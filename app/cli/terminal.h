#ifndef TESSALY_APP_CLI_TERMINAL_H_
#define TESSALY_APP_CLI_TERMINAL_H_

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "controls/rich_text_box.h"

namespace tessaly::cli {

// The standard streams' descriptors, alike on every platform.
inline constexpr int kStandardInput = 0;
inline constexpr int kStandardOutput = 1;
inline constexpr int kStandardError = 2;

// True when `fd` is a terminal.
bool IsTerminal(int fd);

// Readies the terminal behind `fd` for the colour escapes and the UTF-8
// the printers write (a Windows console needs both switched on); false
// where it cannot show colour escapes.
bool PrepareForColour(int fd);

// The colour of the terminal's background, as the terminal itself (or
// the console) says when asked; nothing where it does not answer at once
// or cannot be asked (no terminal, or a program in the background).
std::optional<Rgb> AskTerminalBackground();

// The person at the terminal, if there is one, who answers questions.
class Person {
 public:
  virtual ~Person() = default;
  // False when there is no terminal to ask on.
  virtual bool Reachable() = 0;
  // Shows `prompt` and reads one line without its line end; nothing at the
  // end of input or when no one is reachable.
  virtual std::optional<std::string> Ask(std::string_view prompt) = 0;
};

// Asks on standard input when it is a terminal (the prompt goes to standard
// error), else on the controlling terminal (/dev/tty, or the console on
// Windows), so a question still reaches the person when input and output
// are piped. Without either, no
// one is reachable. The terminal is opened at the first question.
class TerminalPerson : public Person {
 public:
  TerminalPerson() = default;
  TerminalPerson(const TerminalPerson&) = delete;
  TerminalPerson& operator=(const TerminalPerson&) = delete;
  ~TerminalPerson() override;

  bool Reachable() override;
  std::optional<std::string> Ask(std::string_view prompt) override;

 private:
  void Open();

  bool opened_ = false;
  std::FILE* in_ = nullptr;
  std::FILE* out_ = nullptr;
  bool ownsTty_ = false;
};

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_TERMINAL_H_
