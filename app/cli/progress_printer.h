#ifndef TESSALY_APP_CLI_PROGRESS_PRINTER_H_
#define TESSALY_APP_CLI_PROGRESS_PRINTER_H_

#include <chrono>
#include <ostream>
#include <string>
#include <string_view>

namespace tessaly::cli {

// Draws a progress window as one line, "caption  percent". On a terminal
// the line is redrawn in place (at most once per `interval`, but always
// for the first and the last state); elsewhere only the last state of each
// window is written, so logs stay short.
class ProgressPrinter {
 public:
  ProgressPrinter(std::ostream& out, bool terminal,
                  std::chrono::milliseconds interval = std::chrono::milliseconds(50))
      : out_(out), terminal_(terminal), interval_(interval) {}

  // A window came up.
  void Begin();
  // Its caption or percentage changed.
  void Draw(std::string_view caption, std::string_view percent);
  // The window went.
  void End();
  // Something else is about to be written: end a half-drawn line first.
  void BreakLine();

 private:
  void Redraw();

  std::ostream& out_;
  bool terminal_;
  std::chrono::milliseconds interval_;
  std::string line_;
  bool drawn_ = false;    // line_ is what the terminal shows
  bool onLine_ = false;   // the cursor stands on a progress line
  std::chrono::steady_clock::time_point lastDraw_{};
};

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_PROGRESS_PRINTER_H_
