// The console program's pieces: its options, the shell's words, its printers
// and its dialogs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <deque>
#include <sstream>
#include <string>
#include <vector>

#include "cli_options.h"
#include "dry_run.h"
#include "log_printer.h"
#include "platform/memory/memory_file_system.h"
#include "platform/posix/posix_working_folder.h"
#include "progress_printer.h"
#include "settings/shell_words.h"
#include "terminal_ui.h"
#include "wizard/memory_world.h"
#include "wizard_report.h"
#include "undo_command.h"

namespace tessaly::cli {
namespace {

using Kind = Request::Kind;
using Words = std::vector<std::string>;

// A request in one line: "help", "version", "error", or the options set
// (n: dry run, j: JSON, 0: NUL-separated, u: undo, l: list runs,
// r: recursive, v: verbose), "<" and the list of files, each word left in
// brackets, and "|" and the command-line text.
std::string Summary(const Request& r) {
  if (r.kind != Kind::kRun) {
    return r.kind == Kind::kHelp ? "help" : r.kind == Kind::kVersion ? "version" : "error";
  }
  std::string text = r.dryRun ? "n" : "";
  text += std::string(r.json ? "j" : "") + (r.nulSeparated ? "0" : "");
  text += std::string(r.undo ? "u" : "") + (r.listRuns ? "l" : "");
  text += std::string(r.recursive ? "r" : "") + (r.verbose ? "v" : "");
  if (r.filesFrom) text += " <" + *r.filesFrom;
  for (const std::string& word : r.words) text += " [" + word + "]";
  if (r.commandLine) text += " |" + *r.commandLine;
  return text;
}

TEST(ReadArguments, OptionsAndWhatTheyLeave) {
  const std::string raw = R"q("c:\a b.txt";rel.txt /placement2:"(none)" /step:4)q";
  const std::pair<Words, std::string> cases[] = {
      {{"--help", "-x"}, "help"}, {{"a.txt", "-h", "/exit"}, "help"}, {{"--version"}, "version"},
      {{"-n", "a.txt", "-", "/step:4"}, "n [a.txt] [-] [/step:4]"},
      {{"a.txt", "--dry-run", "--json"}, "nj [a.txt]"},
      {{"-n0", "--files-from", "-"}, "n0 <-"},
      {{"-nrv", "--recursive", "dir"}, "nrv [dir]"}, {{"--verbose"}, "v"},
      {{"--null", "--files-from=list", "/step:4"}, "0 <list [/step:4]"},
      {{"-n", "--command-line", raw}, "n |" + raw},  // passed through unchanged
      // "--" ends the options, and stays to end the switches too.
      {{"--", "-n", "--odd.txt", "/exit"}, " [--] [-n] [--odd.txt] [/exit]"},
      {{"-x"}, "error"}, {{"--bogus"}, "error"}, {{"--files-from"}, "error"},
      {{"--command-line", "x", "/exit"}, "error"}, {{"a.txt", "--command-line", "x"}, "error"},
      {{"--files-from", "list", "--command-line", "x"}, "error"},
      {{"-n", "--undo", "--json", "RUN"}, "nju [RUN]"}, {{"--list-runs"}, "l"},
  };
  for (const auto& [words, summary] : cases) EXPECT_EQ(Summary(ReadArguments(words)), summary);
  // A name that exists and is written like an option is a file; one that
  // is also an option is refused, since either reading may be a trap.
  const auto exists = [](const std::string& word) {
    return word == "--files-from=x" || word == "-n" || word == "--odd" || word == "--";
  };
  EXPECT_EQ(Summary(ReadArguments({"--json", "--odd", "--", "--json"}, exists)), "j [--odd] [--] [--json]");
  for (const char* trap : {"--files-from=x", "-n"}) {
    EXPECT_EQ(Summary(ReadArguments({"a.txt", trap, "/step:4"}, exists)), "error") << trap;
  }
  // --undo takes one run's name at most, --list-runs nothing.
  const std::pair<Words, bool> runs[] = {
      {{"--undo"}, true}, {{"--undo", "RUN"}, true}, {{"--list-runs", "--json"}, true},
      {{"--undo", "a", "b"}, false}, {{"--list-runs", "a"}, false}, {{"--undo", "--list-runs"}, false},
      {{"--undo", "--files-from", "list"}, false}, {{"--undo", "--", "RUN"}, false},
  };
  for (const auto& [words, fine] : runs) {
    EXPECT_EQ(!RunsRequestProblem(ReadArguments(words)), fine) << words.back();
  }
  EXPECT_EQ(ReadArguments({"--lower"}).error, "unknown option '--lower' (for a file of that name, "
                                              "write ./--lower or put it behind --)");
}

// On Windows the command line is one text: the options come off its front
// and the rest reaches the wizard byte for byte.
TEST(ReadWholeCommandLine, OptionsComeOffTheFrontAndTheRestStaysAsItIs) {
  const std::pair<const char*, const char*> cases[] = {
      {R"q(C:\a b.txt;"C:\c.txt"  /step:4 -n)q", R"q( |C:\a b.txt;"C:\c.txt"  /step:4 -n)q"},
      {"  -n\t--json C:\\a.txt /step:4", "nj |C:\\a.txt /step:4"},
      {"-- -n.txt /exit", " |-n.txt /exit"}, {"- a.txt", " |- a.txt"}, {"--dry-run", "n |"},
      {"-0 --files-from \"C:\\my list\" /step:4", "0 <C:\\my list |/step:4"},
      {"--version C:\\a.txt", "version"},
      {"-h", "help"}, {"-x a.txt", "error"}, {"--command-line a.txt", "error"},
      {"--undo  RUN ", "u |RUN "},
  };
  for (const auto& [text, summary] : cases) EXPECT_EQ(Summary(ReadWholeCommandLine(text)), summary);
}

// A line's CR LF end (a list written on Windows) is taken off whole; a CR
// elsewhere, or before a NUL, is part of the name. A list that runs on for
// longer than a path without a name is none: an endless one ends.
TEST(ReadFileNames, KeepsEveryByteButTheSeparator) {
  std::istringstream lines("a;b.txt\r\n\nsay \"hi\"\\n.txt\n\rcr\r\r\n");
  EXPECT_EQ(ReadFileNames(lines, false, 20), (Words{"a;b.txt", "say \"hi\"\\n.txt", "\rcr\r"}));
  std::istringstream nul(std::string("new\nline.txt\0\0tab\t.txt\r", 23));
  EXPECT_EQ(ReadFileNames(nul, true, 20), (Words{"new\nline.txt", "tab\t.txt\r"}));
  for (bool nulSeparated : {false, true}) {
    for (std::size_t length : {15, 16}) {
      std::istringstream list(std::string(5, '\0') + std::string(length, 'a'));
      EXPECT_EQ(ReadFileNames(list, nulSeparated, 20).has_value(), length == 15);
    }
    std::istringstream endless(std::string(1 << 17, nulSeparated ? '\0' : 'a'));
    EXPECT_EQ(ReadFileNames(endless, nulSeparated, 20), std::nullopt);
  }
}

TEST(SortShellWords, SwitchesOnlyInFullTheRestFiles) {
  const PosixWorkingFolder here("/home/ann/work");
  const struct {
    Words words, files;
    std::string switches;
  } cases[] = {
      // Files: made absolute, cleaned, model form, every byte kept.
      {{"a.txt", "/tmp/b  c.JPG"}, {R"(\home\ann\work\a.txt)", R"(\tmp\b  c.JPG)"}, ""},
      // A ".." is the kernel's to walk (through links); where it finds no
      // folder, the path stays as written.
      {{"./sub//./c.txt", "../up.txt"}, {R"(\home\ann\work\sub\c.txt)", R"(\home\ann\work\..\up.txt)"}, ""},
      {{"one;two.txt", R"(x\step:4.txt)", R"(say "hi".TXT)", "new\nline"},
       {R"(\home\ann\work\one;two.txt)", R"(\home\ann\work\x/step:4.txt)",
        R"(\home\ann\work\say "hi".TXT)", "\\home\\ann\\work\\new\nline"},
       ""},
      // A path from the root that only begins like a switch, or is written
      // like one but exists.
      {{"/showwiz/Photo.JPG", "/home/ann/exit.txt", "/tmp"},
       {R"(\showwiz\Photo.JPG)", R"(\home\ann\exit.txt)", R"(\tmp)"}, ""},
      // Switches, in their order, placement values quoted again.
      {{"/exit", "a.txt", "/settings:Capitalize", "/step:4", "/hide", "/show"},
       {R"(\home\ann\work\a.txt)"}, "/exit /settings:Capitalize /step:4 /hide /show"},
      {{"/DefineUnwantedFormatting", "/placement2:(none)", "/placement1:My Name", "/placement6:"},
       {}, R"q(/DefineUnwantedFormatting /placement2:"(none)" /placement1:"My Name" /placement6:"")q"},
      {{R"(/placement3:" - ")", R"(/placement4:a/b\)"}, {}, R"q(/placement3:" - " /placement4:"a/b\")q"},
      // "--" ends the switches; empty words are dropped.
      {{"", "/step:3", "--", "/exit", "--", "-n"},
       {R"(\exit)", R"(\home\ann\work\--)", R"(\home\ann\work\-n)"}, "/step:3"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.words.back());
    const ShellWords sorted = SortShellWords(c.words, here);
    EXPECT_EQ(sorted.badSwitch, "");
    EXPECT_EQ(sorted.files, c.files);
    EXPECT_EQ(sorted.switches, c.switches);
  }
  // Written like a switch but none: refused.
  for (const char* bad : {"/stpe:4", "/step:45", "/settings:Bogus", "/placement0:x",
                          "/placement7:x", "/placement1:a\"b", "/placement1:x /exit", "/Exit",
                          "/settings:UpperCase/x"}) {
    EXPECT_EQ(SortShellWords({"a.txt", bad}, here).badSwitch, bad);
  }
}

// The list takes 32,767 files: a dry run says how many paths it left out,
// as the run does, and either ends with status 1.
TEST(ReportEnd, PathsTheFullListLeftOutAreSaidAndFailTheRun) {
  MemoryFileSystem files;
  std::string line;
  for (int i = 0; i < 32768; ++i) {
    const std::string path = "C:\\many\\" + std::to_string(i) + ".txt";
    files.AddFile(path);
    line += path + ";";
  }
  for (bool dryRun : {true, false}) {
    MemoryWorld world(files);
    const fTessaly& form = world.Start(line + " /step:4", dryRun);
    std::ostringstream out, messages;
    EXPECT_EQ(ReportEnd(form, files, {}, out, messages), 1);
    EXPECT_THAT(messages.str(), ::testing::StartsWith("tessaly-cli: 1 path was not added")) << dryRun;
  }
}

// A dry run's plan shows the changes, unchanged files only when asked, and
// a path under the current folder relative to it, as the file system tells
// names apart.
TEST(PrintPlan, ChangesRelativeToTheCurrentFolder) {
  const std::vector<PlannedRename> plan = {{"\\home\\ann\\A.TXT", "\\home\\ann\\a.txt", false},
                                           {"\\home\\ann\\same", "\\home\\ann\\same", false},
                                           {"\\home\\annex\\b", "\\HOME\\ANN\\sub\\b", true}};
  const struct { MemoryFileSystem::LetterCase letterCase; bool unchangedToo; const char* printed; } cases[] = {
      {MemoryFileSystem::LetterCase::kExact, false, "A.TXT -> a.txt\n/home/annex/b -> /HOME/ANN/sub/b\n"},
      {MemoryFileSystem::LetterCase::kIgnore, true, "A.TXT -> a.txt\nsame -> same\n/home/annex/b -> sub/b\n"},
  };
  for (const auto& c : cases) {
    const MemoryFileSystem files(c.letterCase, MemoryFileSystem::ShownForm::kPosix);
    std::ostringstream out;
    PrintPlan(plan, files, {"\\home\\ann\\", c.unchangedToo, ColourMode::kNone}, out);
    EXPECT_EQ(out.str(), c.printed);
  }
  EXPECT_EQ(PlanSummary(CountPlan(plan)), "1 to rename, 1 unchanged, 1 clash");
}

// A log as the wizard writes it: head, one line per file coloured whole,
// foot without a final line end.
RichTextBox SampleLog() {
  RichTextBox box;
  box.SetText("Head\r\n");
  auto line = [&](std::string_view text, Rgb colour) {
    const std::size_t start = box.Length();
    box.SetSelStart(start);
    box.SetSelText(text);
    box.SetSelStart(start);
    box.SetSelLength(box.Length() - start);
    box.SetSelColor(colour);
  };
  line("Ünï > ä (Completed)\r\n", {0, 0, 255});
  // A name may hold control characters; they must not reach the terminal.
  line("x\x1b[8m\r > y\n (Failed! - Error Renaming File)\r\n", {255, 0, 0});
  line("z > z (No Change}\r\n", {0, 0, 0});
  box.SetSelStart(box.Length());
  box.SetSelText("\r\nFoot");
  return box;
}

std::string Printed(const RichTextBox& box, const Colours& colours) {
  std::ostringstream out;
  PrintRichText(box, out, colours);
  return out.str();
}

// Plain text has Unix line ends and ends with one. Colours wrap each
// coloured line but not black ones, and land behind multi-byte letters,
// since runs count characters. Each colour is one that reads at 4.5:1 on
// the terminal's background: blue and red as they are on white; on black
// a lighter blue (with the basic colours, which xterm shows 2.2:1 there,
// cyan) and a bright red.
TEST(PrintRichText, EscapedLinesInTheirColoursReadableOnTheBackground) {
  const std::string failed = "x\\x1b[8m\\r > y\\n (Failed! - Error Renaming File)\n";
  const std::string tail = "z > z (No Change}\n\nFoot\n";
  EXPECT_EQ(Printed(SampleLog(), ColourMode::kNone),
            "Head\nÜnï > ä (Completed)\n" + failed + tail);
  const Rgb black{0, 0, 0}, white{255, 255, 255};
  const struct { Colours colours; const char *blue, *red; } cases[] = {
      {{ColourMode::kBasic, white}, "34", "31"},
      {{ColourMode::kBasic, black}, "36", "91"},
      {{ColourMode::k256, black}, "38;5;63", "38;5;196"},
      {{ColourMode::kTrueColour, white}, "38;2;0;0;255", "38;2;238;0;0"},
      {{ColourMode::kTrueColour, black}, "38;2;94;94;255", "38;2;255;0;0"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Printed(SampleLog(), c.colours),
              std::string("Head\n\x1b[") + c.blue + "mÜnï > ä (Completed)\n\x1b[0m\x1b[" + c.red + "m" +
                  failed + "\x1b[0m" + tail) << c.blue;
  }
  EXPECT_EQ(Printed(RichTextBox{}, ColourMode::kBasic), "");
}

TEST(ColourModeFor, FollowsTheTerminalAndTheUsualVariables) {
  EXPECT_EQ(ColourModeFor(false, nullptr, "truecolor", "xterm"), ColourMode::kNone);
  EXPECT_EQ(ColourModeFor(true, nullptr, nullptr, nullptr), ColourMode::kBasic);
  EXPECT_EQ(ColourModeFor(true, "", "truecolor", "xterm"), ColourMode::kTrueColour);
  EXPECT_EQ(ColourModeFor(true, "1", "truecolor", "xterm"), ColourMode::kNone);
  EXPECT_EQ(ColourModeFor(true, nullptr, "yes", "xterm"), ColourMode::kBasic);
  EXPECT_EQ(ColourModeFor(true, nullptr, "yes", "xterm-256color"), ColourMode::k256);
  EXPECT_EQ(ColourModeFor(true, nullptr, "truecolor", "dumb"), ColourMode::kNone);
}

// What a terminal answers about its background, and COLORFGBG.
TEST(TerminalBackground, FromTheTerminalsAnswerOrColorFgBg) {
  const std::pair<std::string_view, std::optional<Rgb>> answers[] = {
      {"\x1b]11;rgb:1e1e/1e1e/1e1e\x1b\\\x1b[?62;22c", Rgb{30, 30, 30}},
      {"\x1b]11;rgb:ff/ff/ff\x07", Rgb{255, 255, 255}},
      {"\x1b]11;rgb:f/0/8\x07", Rgb{255, 0, 136}},
      {"\x1b[?62;22c", std::nullopt}, {"\x1b]11;rgb:12345/0/0", std::nullopt},
  };
  for (const auto& [answer, background] : answers) EXPECT_EQ(BackgroundInAnswer(answer), background);
  EXPECT_EQ(BackgroundInColorFgBg("15;0"), (Rgb{0, 0, 0}));
  EXPECT_EQ(BackgroundInColorFgBg("0;default;15"), (Rgb{255, 255, 255}));
  EXPECT_EQ(BackgroundInColorFgBg("15;default"), std::nullopt);
  EXPECT_EQ(BackgroundInColorFgBg(nullptr), std::nullopt);
}

// Three windows: one broken by a question, one that reaches "100%", one
// that never draws. Without a terminal each window prints its last state;
// a terminal skips states between draws, but never a window's first, its
// "100%", nor the state it ends in.
TEST(ProgressPrinter, PrintsWhatEachWindowCameTo) {
  for (bool terminal : {false, true}) {
    std::ostringstream out;
    ProgressPrinter printer(out, terminal, std::chrono::hours(1));
    printer.Begin();
    for (const char* percent : {"0%", "12.5%", "25%"}) printer.Draw(" Run", percent);
    printer.BreakLine();  // the line comes back after the question
    out << "Question?\n";
    printer.End();
    printer.Begin();
    printer.Draw("Run", "50%");
    printer.Draw("Run", "100%");
    out << "|";
    printer.End();
    printer.Begin();
    printer.End();
    EXPECT_EQ(out.str(), terminal ? "\rRun  0%\x1b[K\nQuestion?\n\rRun  25%\x1b[K\n\rRun  50%\x1b[K"
                                    "\rRun  100%\x1b[K|\n"
                                  : "Question?\nRun  25%\n|Run  100%\n");
  }
}

// A person who answers from a queue; with the queue empty the input ends.
class QueuedPerson : public Person {
 public:
  bool reachable = true;
  std::deque<std::string> answers;
  std::vector<std::string> prompts;

  bool Reachable() override { return reachable; }
  std::optional<std::string> Ask(std::string_view prompt) override {
    prompts.emplace_back(prompt);
    if (answers.empty()) return std::nullopt;
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

// A name that would hide the rest of the question on a terminal, and the
// question as shown.
constexpr std::string_view kQuestion =
    "The file 'b\x1b[8m.txt' already exists. Would you like to overwrite this file?";
const std::string kShown =
    "Confirm Overwrite: The file 'b\\x1b[8m.txt' already exists. Would you like to overwrite this "
    "file?";

// What the person types, one line at a time: a line not understood is
// asked again, and the end of input is No. With no terminal the answer is
// No without asking, and said so. An OK box is printed without asking, and
// the pickers are cancelled.
TEST(TerminalUi, ReadsEachAnswerOrSaysNo) {
  std::ostringstream out, messages;
  QueuedPerson person;
  TerminalUi ui{out, messages, false, person};
  EXPECT_EQ(ui.MessageBox("The list\r\nis\nfull.\x7f", MessageButtons::kOk, "Tessaly"),
            MessageAnswer::kOk);
  EXPECT_EQ(ui.BrowseForFolder("Select a folder", "\\home"), "");
  EXPECT_FALSE(ui.ShowOpenFileDialog(OpenFileRequest{}).accepted);
  EXPECT_TRUE(person.prompts.empty());
  const auto askOverwrite = [&] {
    return ui.MessageBox(kQuestion, MessageButtons::kYesNoCancel, "Confirm Overwrite");
  };
  person.answers = {"maybe", "", " Y ", "no", "C", "yes", "n"};
  for (MessageAnswer answer : {MessageAnswer::kYes, MessageAnswer::kNo, MessageAnswer::kCancel,
                               MessageAnswer::kYes, MessageAnswer::kNo, MessageAnswer::kNo}) {
    EXPECT_EQ(askOverwrite(), answer);
  }
  person.reachable = false;
  EXPECT_EQ(askOverwrite(), MessageAnswer::kNo);
  EXPECT_EQ(person.prompts.size(), 8u);
  EXPECT_EQ(person.prompts[0], kShown + " [y]es, [n]o, [c]ancel? ");
  EXPECT_EQ(messages.str(), "Tessaly: The list\nis\\nfull.\\x7f\n"
                            "\nConfirm Overwrite: no answer, answering No\n" +
                                kShown + "\nConfirm Overwrite: no terminal to ask, answering No\n");
}

}  // namespace
}  // namespace tessaly::cli
