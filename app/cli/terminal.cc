#include "terminal.h"

namespace tessaly::cli {

TerminalPerson::~TerminalPerson() {
  if (!ownsTty_) return;
  std::fclose(in_);
  std::fclose(out_);
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
