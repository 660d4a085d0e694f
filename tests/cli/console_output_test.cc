// The console's printers: the coloured log and the progress line.
#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>

#include "log_printer.h"
#include "progress_printer.h"

namespace tessaly::cli {
namespace {

constexpr Rgb kBlue{0, 0, 255};
constexpr Rgb kRed{255, 0, 0};
constexpr Rgb kBlack{0, 0, 0};

// A log as the wizard writes it: head, one line per file coloured whole,
// foot without a final line end.
RichTextBox SampleLog() {
  RichTextBox box;
  box.SetText("Head\r\n");
  box.SetSelStart(box.Length());
  auto line = [&](std::string_view text, Rgb colour) {
    const std::size_t start = box.selStart();
    box.SetSelText(text);
    const std::size_t end = box.selStart();
    box.SetSelStart(start);
    box.SetSelLength(end - start);
    box.SetSelColor(colour);
    box.SetSelStart(end);
  };
  line("Ünï > ä (Completed)\r\n", kBlue);
  // A name may hold control characters; they must not reach the terminal.
  line("x\x1b[8m\r > y\n (Failed! - Error Renaming File)\r\n", kRed);
  line("z > z (No Change}\r\n", kBlack);
  box.SetSelText("\r\nFoot");
  return box;
}

std::string Printed(const RichTextBox& box, ColourMode mode) {
  std::ostringstream out;
  PrintRichText(box, out, mode);
  return out.str();
}

TEST(PrintRichText, PlainTextHasUnixLineEndsAndEndsWithOne) {
  EXPECT_EQ(Printed(SampleLog(), ColourMode::kNone),
            "Head\n"
            "Ünï > ä (Completed)\n"
            "x\\x1b[8m\\r > y\\n (Failed! - Error Renaming File)\n"
            "z > z (No Change}\n"
            "\n"
            "Foot\n");
}

TEST(PrintRichText, BasicColoursWrapEachColouredLineButNotBlackOnes) {
  // Runs count characters; the escape must land behind the multi-byte
  // letters, not inside them.
  EXPECT_EQ(Printed(SampleLog(), ColourMode::kBasic),
            "Head\n"
            "\x1b[34mÜnï > ä (Completed)\n\x1b[0m"
            "\x1b[31mx\\x1b[8m\\r > y\\n (Failed! - Error Renaming File)\n\x1b[0m"
            "z > z (No Change}\n"
            "\n"
            "Foot\n");
  const std::string printed = Printed(SampleLog(), ColourMode::kTrueColour);
  EXPECT_NE(printed.find("\x1b[38;2;0;0;255mÜnï"), std::string::npos);
  EXPECT_EQ(printed.find("38;2;0;0;0"), std::string::npos);
  EXPECT_EQ(Printed(RichTextBox{}, ColourMode::kBasic), "");
}

TEST(ColourModeFor, FollowsTheTerminalAndTheUsualVariables) {
  EXPECT_EQ(ColourModeFor(false, nullptr, "truecolor", "xterm"), ColourMode::kNone);
  EXPECT_EQ(ColourModeFor(true, nullptr, nullptr, nullptr), ColourMode::kBasic);
  EXPECT_EQ(ColourModeFor(true, "", "truecolor", "xterm"), ColourMode::kTrueColour);
  EXPECT_EQ(ColourModeFor(true, "1", "truecolor", "xterm"), ColourMode::kNone);
  EXPECT_EQ(ColourModeFor(true, nullptr, "yes", "xterm"), ColourMode::kBasic);
  EXPECT_EQ(ColourModeFor(true, nullptr, "truecolor", "dumb"), ColourMode::kNone);
}

TEST(ProgressPrinter, PlainOutputKeepsOnlyEachWindowsLastState) {
  std::ostringstream out;
  ProgressPrinter printer(out, false);
  printer.Begin();
  printer.Draw(" Progress", "0%");
  printer.Draw("Renaming and Moving Files...", "0%");
  printer.Draw("Renaming and Moving Files...", "33.33%");
  printer.Draw("Renaming and Moving Files...", "100%");
  printer.End();
  printer.Begin();
  printer.End();  // a window that never drew prints nothing
  EXPECT_EQ(out.str(), "Renaming and Moving Files...  100%\n");
}

TEST(ProgressPrinter, TerminalSkipsStatesBetweenDrawsButNeverTheLast) {
  std::ostringstream out;
  ProgressPrinter printer(out, true, std::chrono::hours(1));
  printer.Begin();
  printer.Draw("Run", "0%");
  printer.Draw("Run", "12.5%");
  printer.Draw("Run", "25%");
  printer.BreakLine();  // a question breaks the line, and the line comes back
  out << "Question?\n";
  printer.End();
  EXPECT_EQ(out.str(), "\rRun  0%\x1b[K\nQuestion?\n\rRun  25%\x1b[K\n");
}

}  // namespace
}  // namespace tessaly::cli
