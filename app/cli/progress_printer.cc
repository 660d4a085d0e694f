#include "progress_printer.h"

namespace tessaly::cli {

namespace {

std::string_view TrimBlanks(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

}  // namespace

void ProgressPrinter::Begin() {
  line_.clear();
  drawn_ = true;
  lastDraw_ = {};
}

void ProgressPrinter::Draw(std::string_view caption, std::string_view percent) {
  std::string line(TrimBlanks(caption));
  line += "  ";
  line += percent;
  if (line == line_) return;
  line_ = std::move(line);
  drawn_ = false;
  if (!terminal_) return;
  const auto now = std::chrono::steady_clock::now();
  const bool first = lastDraw_ == std::chrono::steady_clock::time_point{};
  if (first || percent == "100%" || now - lastDraw_ >= interval_) {
    lastDraw_ = now;
    Redraw();
  }
}

void ProgressPrinter::Redraw() {
  // "\x1b[K" clears what a longer earlier line left behind.
  out_ << '\r' << line_ << "\x1b[K" << std::flush;
  drawn_ = true;
  onLine_ = true;
}

void ProgressPrinter::End() {
  if (line_.empty()) return;
  if (terminal_) {
    if (!drawn_) Redraw();
    BreakLine();
  } else {
    out_ << line_ << '\n' << std::flush;
  }
  line_.clear();
}

void ProgressPrinter::BreakLine() {
  if (!onLine_) return;
  out_ << '\n' << std::flush;
  onLine_ = false;
  drawn_ = false;
}

}  // namespace tessaly::cli
