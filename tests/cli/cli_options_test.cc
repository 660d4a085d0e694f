#include "cli_options.h"

#include <gtest/gtest.h>

#include <sstream>


namespace tessaly::cli {
namespace {

using Kind = Request::Kind;
using Words = std::vector<std::string>;

TEST(ReadArguments, OptionsAndWhatTheyLeave) {
  struct Case {
    Words words;
    Kind kind;
    Words left;  // files and switches
    bool dryRun = false;
    bool json = false;
    bool nul = false;
    const char* filesFrom = nullptr;
  };
  const Case cases[] = {
      {{"--help"}, Kind::kHelp, {}},
      {{"a.txt", "-h", "/exit"}, Kind::kHelp, {"a.txt"}},
      {{"--version"}, Kind::kVersion, {}},
      {{"-n", "a.txt", "/step:4"}, Kind::kRun, {"a.txt", "/step:4"}, true},
      {{"a.txt", "--dry-run", "--json"}, Kind::kRun, {"a.txt"}, true, true},
      {{"-n0", "--files-from", "-"}, Kind::kRun, {}, true, false, true, "-"},
      {{"--null", "--files-from=list", "/step:4"}, Kind::kRun, {"/step:4"}, false, false, true, "list"},
      // "--" ends the options, and stays to end the switches too.
      {{"--", "-n", "--odd.txt", "/exit"}, Kind::kRun, {"--", "-n", "--odd.txt", "/exit"}},
      {{"-", "a.txt"}, Kind::kRun, {"-", "a.txt"}},
      {{"-x"}, Kind::kError, {}},
      {{"-nx"}, Kind::kError, {}},
      {{"--bogus"}, Kind::kError, {}},
      {{"--files-from"}, Kind::kError, {}},
      {{"--command-line"}, Kind::kError, {}},
      {{"--command-line", "x", "/exit"}, Kind::kError, {}},
      {{"a.txt", "--command-line", "x"}, Kind::kError, {}},
  };
  for (const Case& c : cases) {
    const Request request = ReadArguments(c.words);
    const std::string first = c.words.front();
    EXPECT_EQ(request.kind, c.kind) << first;
    if (c.kind != Kind::kRun) continue;
    EXPECT_EQ(request.words, c.left) << first;
    EXPECT_EQ(request.dryRun, c.dryRun) << first;
    EXPECT_EQ(request.json, c.json) << first;
    EXPECT_EQ(request.nulSeparated, c.nul) << first;
    EXPECT_EQ(request.filesFrom.value_or("(none)"), c.filesFrom ? c.filesFrom : "(none)") << first;
  }
}

TEST(ReadArguments, RawCommandLinePassesThroughUnchanged) {
  const std::string raw = R"q("c:\a b.txt";rel.txt /placement2:"(none)" /step:4)q";
  const Request request = ReadArguments({"-n", "--command-line", raw});
  EXPECT_EQ(request.kind, Kind::kRun);
  EXPECT_EQ(request.commandLine, raw);
  EXPECT_TRUE(request.dryRun);
}

TEST(ReadArguments, AnErrorNamesTheWordAndTheWayOut) {
  EXPECT_EQ(ReadArguments({"--lower"}).error,
            "unknown option '--lower' (for a file of that name, write ./--lower or put it behind "
            "--)");
}

// On Windows the command line is one text: the options come off its front
// and the rest reaches the wizard byte for byte.
TEST(ReadWholeCommandLine, OptionsComeOffTheFrontAndTheRestStaysAsItIs) {
  struct Case {
    const char* text;
    Kind kind;
    const char* left;
    bool dryRun = false;
    bool json = false;
  };
  const Case cases[] = {
      {R"q(C:\a b.txt;"C:\c.txt"  /step:4 -n)q", Kind::kRun, R"q(C:\a b.txt;"C:\c.txt"  /step:4 -n)q"},
      {"  -n\t--json C:\\a.txt /step:4", Kind::kRun, "C:\\a.txt /step:4", true, true},
      {"-- -n.txt /exit", Kind::kRun, "-n.txt /exit"},
      {"- a.txt", Kind::kRun, "- a.txt"},
      {"--dry-run", Kind::kRun, "", true},
      {"--version C:\\a.txt", Kind::kVersion, ""},
      {"-h", Kind::kHelp, ""},
      {"-x a.txt", Kind::kError, ""},
      {"-0 --files-from \"C:\\my list\" /step:4", Kind::kRun, "/step:4"},
      {"--command-line a.txt", Kind::kError, ""},
  };
  for (const Case& c : cases) {
    const Request request = ReadWholeCommandLine(c.text);
    EXPECT_EQ(request.kind, c.kind) << c.text;
    if (c.kind != Kind::kRun) continue;
    EXPECT_EQ(request.commandLine, c.left) << c.text;
    EXPECT_EQ(request.dryRun, c.dryRun) << c.text;
    EXPECT_EQ(request.json, c.json) << c.text;
  }
  EXPECT_EQ(ReadWholeCommandLine("-0 --files-from \"C:\\my list\" /step:4").filesFrom,
            "C:\\my list");
}

TEST(ReadFileNames, KeepsEveryByteButTheSeparator) {
  std::istringstream lines("a;b.txt\n\nsay \"hi\"\\n.txt\n");
  EXPECT_EQ(ReadFileNames(lines, false), (Words{"a;b.txt", "say \"hi\"\\n.txt"}));
  std::istringstream nul(std::string("new\nline.txt\0\0tab\t.txt", 22));
  EXPECT_EQ(ReadFileNames(nul, true), (Words{"new\nline.txt", "tab\t.txt"}));
}

}  // namespace
}  // namespace tessaly::cli
