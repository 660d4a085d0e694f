// tessaly-cli on real temporary folders, as a script would run it: no
// terminal, settings in the test's own folder.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "cli_runner.h"
#include "platform/posix/native_path.h"
#include "platform/posix/registry_location.h"
#include "platform/posix/sqlite_registry.h"
#include "settings/settings_store.h"

namespace tessaly::cli {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;

// Any regex metacharacter of `text` taken literally.
std::string Literal(std::string_view text) {
  static const std::regex special(R"([.^$|()\[\]{}*+?\\])");
  return std::regex_replace(std::string(text), special, R"(\$&)");
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::string line;
  for (char c : text) {
    if (c == '\n') {
      lines.push_back(line);
      line.clear();
    } else {
      line += c;
    }
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

// One line of JSON Lines holding an object of strings, read strictly: a
// raw control character, a bad escape or anything behind the object fails.
// "\udcXX" alone gives back the byte XX, as a name that is no UTF-8 needs.
std::optional<std::map<std::string, std::string>> ParseJsonObject(std::string_view line) {
  std::size_t at = 0;
  auto take = [&](char c) { return at < line.size() && line[at] == c ? (++at, true) : false; };
  auto hex4 = [&](unsigned& value) {
    if (at + 4 > line.size()) return false;
    value = std::stoul(std::string(line.substr(at, 4)), nullptr, 16);
    at += 4;
    return true;
  };
  auto string = [&]() -> std::optional<std::string> {
    if (!take('"')) return std::nullopt;
    std::string out;
    while (at < line.size() && line[at] != '"') {
      const auto c = static_cast<unsigned char>(line[at++]);
      if (c < 0x20) return std::nullopt;
      if (c != '\\') {
        out += static_cast<char>(c);
        continue;
      }
      if (at >= line.size()) return std::nullopt;
      const char e = line[at++];
      const std::string simple = "\"\\/bfnrt", meaning = "\"\\/\b\f\n\r\t";
      unsigned code = 0;
      if (simple.find(e) != std::string::npos) {
        out += meaning[simple.find(e)];
      } else if (e != 'u' || !hex4(code)) {
        return std::nullopt;
      } else if (code >= 0xdc80 && code <= 0xdcff) {
        out += static_cast<char>(code - 0xdc00);
      } else if (code < 0x80) {
        out += static_cast<char>(code);
      } else {
        return std::nullopt;  // not needed by these tests
      }
    }
    return take('"') ? std::optional(out) : std::nullopt;
  };
  std::map<std::string, std::string> object;
  if (!take('{')) return std::nullopt;
  do {
    auto key = string();
    if (!key || !take(':')) return std::nullopt;
    auto value = string();
    if (!value) return std::nullopt;
    object[*key] = *value;
  } while (take(','));
  if (!take('}') || at != line.size()) return std::nullopt;
  return object;
}

class CliEndToEnd : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "tessaly-cli-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    root = pattern;
    files = root + "/files";
    registry = root + "/registry";
    fs::create_directory(files);
    fs::create_directory(registry);
  }
  void TearDown() override { fs::remove_all(root); }

  void MakeFile(const std::string& name, const std::string& content = "x") {
    std::ofstream(files + "/" + name) << content;
  }
  std::string Content(const std::string& name) {
    std::ifstream in(files + "/" + name);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }
  std::set<std::string> Names(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }
  std::set<std::string> Names() { return Names(files); }
  std::string ModelPath(const std::string& name) { return ToModelPath(files + "/" + name); }

  CliResult Run(const std::vector<std::string>& args) { return RunCli(args, files, registry); }
  // The contents of every file under `folder`, however named.
  std::multiset<std::string> Contents(const std::string& folder) {
    std::multiset<std::string> contents;
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream in(entry.path());
      contents.insert(std::string(std::istreambuf_iterator<char>(in), {}));
    }
    return contents;
  }

  // The line of one file in the change log, the time left open.
  std::string FileLine(const std::string& oldName, const std::string& newName,
                       const std::string& outcome, const std::string& newFolder = "") {
    const std::string folder6 = (files + "/").substr(0, 6);
    const std::string newFolder6 = newFolder.empty() ? folder6 : (newFolder + "/").substr(0, 6);
    return R"(^[0-9]{2}:[0-9]{2}:[0-9]{2} - )" + Literal(folder6) + R"(\.\.\./)" + Literal(oldName) +
           " > " + Literal(newFolder6) + R"(\.\.\./)" + Literal(newName) + " " + Literal(outcome) + "$";
  }

  std::string root;
  std::string files;
  std::string registry;
};

// POSIX extended expressions, as the matchers read them: no "\d".
const std::string kStamp = "[0-9]{2}/[0-9]{2}/[0-9]{4} - [0-9]{2}:[0-9]{2}:[0-9]{2}";

TEST_F(CliEndToEnd, UnattendedRunRenamesToTheLowerCaseDocumentName) {
  MakeFile("Alpha One.TXT");
  MakeFile("BETA.txt");
  MakeFile("gamma.jpg");
  // The one text a script would give, paths joined by ";".
  const std::string commandLine = ModelPath("Alpha One.TXT") + ";" + ModelPath("BETA.txt") + ";" +
                                  ModelPath("gamma.jpg") +
                                  R"q( /settings:LowerCase /placement2:"(none)" /step:4 /hide /exit)q";
  const CliResult result = Run({"--command-line", commandLine});

  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(Names(), (std::set<std::string>{"alpha one", "beta", "gamma"}));
  const std::vector<std::string> lines = Lines(result.out);
  ASSERT_EQ(lines.size(), 13u) << result.out;
  EXPECT_THAT(lines[0], ContainsRegex("^Renaming Started at: " + kStamp + "$"));
  EXPECT_EQ(lines[1], "");
  EXPECT_EQ(lines[2], "3 total files.");
  EXPECT_EQ(lines[3], "");
  EXPECT_EQ(lines[4], "Renamed Files - Log:");
  EXPECT_THAT(lines[5], ContainsRegex(FileLine("Alpha One.TXT", "alpha one", "(Completed)")));
  EXPECT_THAT(lines[6], ContainsRegex(FileLine("BETA.txt", "beta", "(Completed)")));
  EXPECT_THAT(lines[7], ContainsRegex(FileLine("gamma.jpg", "gamma", "(Completed)")));
  EXPECT_EQ(lines[8], "");
  EXPECT_EQ(lines[9], "");
  EXPECT_EQ(lines[10], "3 files where renamed successfully.");
  EXPECT_EQ(lines[11], "");
  EXPECT_THAT(lines[12], ContainsRegex("^Renaming Completed at: " + kStamp + "$"));
  // Output that is no terminal gets no colour and one progress line per window.
  EXPECT_THAT(result.out, Not(HasSubstr("\x1b[")));
  EXPECT_THAT(result.err, HasSubstr("Generating Renamed Files Preview...  100%\n"));
  EXPECT_THAT(result.err, HasSubstr("Renaming and Moving Files...  100%\n"));

  // Step 3 stored the options in the test's own registry.
  SqliteRegistry stored(RegistryLocationIn(registry));
  SettingsStore store(stored);
  EXPECT_EQ(store.GetProgramSetting("Settings", "chkLowercase", SettingValue::FromInt32(-1))
                .AsWholeNumber(),
            1);
}

TEST_F(CliEndToEnd, ShellWordsGiveTheSameRunAsTheOneText) {
  MakeFile("Alpha One.TXT");
  MakeFile("BETA.txt");
  // Relative paths, and a placement value the shell has unquoted.
  const CliResult result = Run({"Alpha One.TXT", "BETA.txt", "/settings:LowerCase",
                                "/placement2:(none)", "/step:4", "/exit"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(Names(), (std::set<std::string>{"alpha one", "beta"}));
  EXPECT_THAT(result.out, HasSubstr("2 files where renamed successfully."));
}

TEST_F(CliEndToEnd, CaseOnlyRenameGoesThroughWithoutAQuestion) {
  MakeFile("a.TXT", "mine");
  const std::string renames = registry + "/renames";
  const bool traced = access("/usr/bin/strace", X_OK) == 0;
  const CliResult result =
      traced ? RunCli({"a.TXT", "/step:4", "/exit"}, files, registry,
                      {"/usr/bin/strace", "-f", "-qq", "-o", renames, "-e",
                       "trace=rename,renameat,renameat2,link,linkat"})
             : Run({"a.TXT", "/step:4", "/exit"});
  EXPECT_EQ(Names(), (std::set<std::string>{"a.txt"}));
  // Where the disk tells letter case apart, the name is free: one rename.
  if (traced) EXPECT_EQ(Lines(Content("../registry/renames")).size(), 1u) << Content("../registry/renames");
  EXPECT_EQ(Content("a.txt"), "mine");
  EXPECT_THAT(Lines(result.out),
              Contains(ContainsRegex(FileLine("a.TXT", "a.txt", "(Completed)"))));
  EXPECT_THAT(result.err, Not(HasSubstr("Confirm Overwrite")));
  const CliResult unchanged = Run({"a.txt", "/step:4"});
  EXPECT_EQ(unchanged.exitCode, 0);
  EXPECT_THAT(unchanged.out, HasSubstr("(No Change}"));
}

// Names mean what the disk says: on a disk that tells letter case apart,
// names that differ only in it are other files, never the file itself.
TEST_F(CliEndToEnd, CaseTwinsAreOtherFilesAndNothingIsLost) {
  MakeFile("B.TXT", "1");
  MakeFile("b.txt", "2");
  const CliResult twins = Run({"B.TXT", "/settings:LowerCase", "/step:4"});
  EXPECT_THAT(twins.err, HasSubstr("Confirm Overwrite: The file 'b.txt' already exists."));
  EXPECT_THAT(twins.err, HasSubstr("answering No"));
  EXPECT_EQ(Content("b.txt"), "2");
  EXPECT_EQ(Content("b.txt.temp"), "1");
  EXPECT_EQ(twins.exitCode, 1);  // a file ended with an error

  fs::remove_all(files);
  fs::create_directory(files);
  for (const char* name : {"Foo.txt", "foo.txt", "FOO.txt"}) MakeFile(name, name);
  const CliResult listed = Run({"Foo.txt", "foo.txt", "FOO.txt"});
  EXPECT_THAT(listed.err, HasSubstr("with 3 files listed"));
  Run({"Foo.txt", "foo.txt", "FOO.txt", "/settings:LowerCase", "/step:4"});
  EXPECT_EQ(Contents(files), (std::multiset<std::string>{"FOO.txt", "Foo.txt", "foo.txt"}));
  EXPECT_EQ(Content("foo.txt"), "foo.txt");
}

// A conversion may change a folder's letter case: with "Include Path" the
// folders of the new path are those that match ignoring case, and without
// it the folder stays as it is, whatever the options would do to it.
TEST_F(CliEndToEnd, FoldersAreMatchedOrLeftAlone) {
  fs::create_directory(files + "/Holiday Photos");
  MakeFile("Holiday Photos/IMG_1.JPG", "pixels");
  // The temporary folder's own name has capitals too: every level matches.
  const CliResult included = Run({"Holiday Photos/IMG_1.JPG", "/settings:LowerCase",
                                  "/settings:IncludePaths", "/step:4"});
  EXPECT_THAT(included.out, HasSubstr("(Completed)")) << included.out;
  EXPECT_EQ(Names(files + "/Holiday Photos"), (std::set<std::string>{"img_1.jpg"}));

  fs::create_directory(files + "/my_photos.2024");
  MakeFile("my_photos.2024/a_b.c.TXT", "text");
  const CliResult shielded = Run({"my_photos.2024/a_b.c.TXT", "/settings:RemoveUnderscores",
                                  "/settings:RemoveExtraSpaces", "/step:4"});
  EXPECT_THAT(shielded.out, HasSubstr("(Completed)")) << shielded.out;
  EXPECT_EQ(Names(files + "/my_photos.2024"), (std::set<std::string>{"a bc.txt"}));
}

TEST_F(CliEndToEnd, SecondFileToTheSameNameStaysUnderItsTempNameWhenNobodyCanSayYes) {
  MakeFile("one.txt", "first");
  MakeFile("two.txt", "second");
  const CliResult result = Run({"one.txt", "two.txt", "/placement1:same", "/step:4", "/exit"});

  EXPECT_EQ(Names(), (std::set<std::string>{"same.txt", "same.txt.temp"}));
  EXPECT_EQ(Content("same.txt"), "first");
  EXPECT_EQ(Content("same.txt.temp"), "second");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err,
              HasSubstr("Confirm Overwrite: The file 'same.txt' already exists. Would you like "
                        "to overwrite this file?\n"
                        "Confirm Overwrite: no terminal to ask, answering No\n"));
  const std::vector<std::string> lines = Lines(result.out);
  ASSERT_GE(lines.size(), 7u) << result.out;
  EXPECT_THAT(lines[5], ContainsRegex(FileLine("one.txt", "same.txt", "(Completed)")));
  EXPECT_THAT(lines[6], ContainsRegex(FileLine("two.txt", "same.txt",
                                               "(Completed - Error Removing Temp File)")));
  EXPECT_THAT(result.out, HasSubstr("\n\n\n1 files where renamed successfully.\n"
                                    "1 files where renamed but with errors.\n\nRenaming Completed"));
}

TEST_F(CliEndToEnd, PlacementWithABackslashMovesIntoAnExistingFolderOnly) {
  fs::create_directory(files + "/archive");
  MakeFile("Report.TXT", "kept");
  const CliResult moved = Run({"Report.TXT", R"(/placement1:archive\)",
                               "/placement2:Document Name", "/placement3:extension", "/step:4",
                               "/exit"});
  EXPECT_EQ(Names(files + "/archive"), (std::set<std::string>{"Report.txt"}));
  EXPECT_EQ(Names(), (std::set<std::string>{"archive"}));
  // The log cuts every folder to six characters.
  EXPECT_THAT(Lines(moved.out), Contains(ContainsRegex(
                                    FileLine("Report.TXT", "Report.txt", "(Completed)"))));

  // Nothing creates a folder: a new path in a missing one fails.
  MakeFile("Other.TXT");
  const CliResult failed = Run({"Other.TXT", R"(/placement1:missing\)",
                                "/placement2:Document Name", "/placement3:extension", "/step:4",
                                "/exit"});
  EXPECT_EQ(Names(), (std::set<std::string>{"archive", "Other.TXT"}));
  EXPECT_THAT(Lines(failed.out),
              Contains(ContainsRegex(
                  FileLine("Other.TXT", "Other.txt", "(Failed! - Error Renaming File)"))));
  EXPECT_THAT(failed.out, HasSubstr("1 files failed to be renamed."));
  EXPECT_EQ(failed.exitCode, 1);
}

TEST_F(CliEndToEnd, NonAsciiNamesAreLowerCasedAndLogged) {
  MakeFile("Ünïcode Ça.JPG", "pixels");
  const CliResult result = Run({"Ünïcode Ça.JPG", "/settings:LowerCase", "/step:4", "/exit"});
  EXPECT_EQ(Names(), (std::set<std::string>{"ünïcode ça.jpg"}));
  EXPECT_EQ(Content("ünïcode ça.jpg"), "pixels");
  EXPECT_THAT(Lines(result.out),
              Contains(ContainsRegex(FileLine("Ünïcode Ça.JPG", "ünïcode ça.jpg", "(Completed)"))));
}

TEST_F(CliEndToEnd, MissingPathsFoldersAndRepeatsAreNotListed) {
  MakeFile("real.TXT");
  fs::create_directory(files + "/folder");
  const CliResult result =
      Run({"real.TXT", "ghost.TXT", "folder", "REAL.txt", "/step:4", "/exit"});
  EXPECT_EQ(Names(), (std::set<std::string>{"folder", "real.txt"}));
  EXPECT_THAT(result.out, HasSubstr("\n1 total files.\n"));
  EXPECT_THAT(result.out, Not(HasSubstr("ghost")));
}

TEST_F(CliEndToEnd, StepThreePrintsThePreviewAndRenamesNothing) {
  MakeFile("Draft_Copy.TXT");
  const CliResult result = Run({"Draft_Copy.TXT", "/settings:RemoveUnderscores", "/step:3"});
  EXPECT_EQ(Names(), (std::set<std::string>{"Draft_Copy.TXT"}));
  EXPECT_THAT(result.out, HasSubstr("Rename Files Preview:\n    " + files + "/Draft Copy.txt"));
  EXPECT_THAT(result.err, HasSubstr("Generating Renamed Files Preview...  100%\n"));
}

TEST_F(CliEndToEnd, BarePathsStopOnFileSelectionAndSaySo) {
  MakeFile("a.txt");
  MakeFile("b.txt");
  const CliResult result = Run({"a.txt", "b.txt"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("stopped on step 1 with 2 files listed"));
}

TEST_F(CliEndToEnd, DefiningUnwantedFormattingShowsTheListReadOnly) {
  const CliResult result = Run({"/DefineUnwantedFormatting", "/exit"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.out, HasSubstr("\n  [ ] Copy Of\n"));
}

// Names that the one command-line text could not carry: each word is one
// file, whatever bytes it holds.
TEST_F(CliEndToEnd, EveryWordIsOneFileWhateverItHolds) {
  struct Case {
    std::vector<std::string> names;  // made in the folder
    std::vector<std::string> args;
    std::set<std::string> after;
  };
  const Case cases[] = {
      // ";" no longer splits a name into two other files.
      {{"ONE;TWO.TXT", "ONE", "TWO.TXT"},
       {"ONE;TWO.TXT", "/settings:LowerCase", "/step:4"},
       {"one;two.txt", "ONE", "TWO.TXT"}},
      // Double quotes stay in the name instead of pointing at another file.
      {{"SAY \"HI\".TXT", "SAY HI.TXT"},
       {"SAY \"HI\".TXT", "/settings:LowerCase", "/step:4"},
       {"say \"hi\".txt", "SAY HI.TXT"}},
      // A backslash injects no "/step:4": nothing runs, and no file is lost.
      {{"A.TXT", R"(X\step:4.TXT)", "B.TXT"},
       {"A.TXT", R"(X\step:4.TXT)", "B.TXT", "/settings:LowerCase"},
       {"A.TXT", R"(X\step:4.TXT)", "B.TXT"}},
      // A leading "-" after "--", and names holding control characters.
      {{"-N.TXT", "TWO\nLINES.TXT", "EVIL\x1b[2J\x1b[HX.TXT"},
       {"/settings:LowerCase", "/step:4", "--", "-N.TXT", "TWO\nLINES.TXT", "EVIL\x1b[2J\x1b[HX.TXT"},
       {"-n.txt", "two\nlines.txt", "evil\x1b[2j\x1b[hx.txt"}},
  };
  for (const Case& c : cases) {
    fs::remove_all(files);
    fs::create_directory(files);
    for (const std::string& name : c.names) MakeFile(name);
    const CliResult result = Run(c.args);
    EXPECT_EQ(Names(), c.after) << c.names.front();
    EXPECT_EQ(result.exitCode, 0) << c.names.front() << result.err;
    // What reaches a terminal shows no raw control character.
    EXPECT_THAT(result.out, Not(HasSubstr("\x1b"))) << c.names.front();
  }
  for (const char* name : {"A.TXT", R"(X\step:4.TXT)", "B.TXT"}) MakeFile(name);
  EXPECT_THAT(Run({"A.TXT", R"(X\step:4.TXT)", "B.TXT", "/settings:LowerCase"}).err,
              HasSubstr("stopped on step 0 with 3 files listed"));
  // A path from the root that only begins like a switch is a file, so
  // without a switch the wizard opens on File Selection.
  EXPECT_THAT(Run({"/showwiz/Photo.JPG", "A.TXT"}).err,
              HasSubstr("stopped on step 1 with 1 files listed"));
}

TEST_F(CliEndToEnd, EscapedNamesInTheLogForgeNoLines) {
  MakeFile("TWO\nLINES.TXT");
  const CliResult result = Run({"TWO\nLINES.TXT", "/settings:LowerCase", "/step:4"});
  EXPECT_THAT(Lines(result.out),
              Contains(ContainsRegex(FileLine(R"(TWO\nLINES.TXT)", R"(two\nlines.txt)",
                                              "(Completed)"))));
}

TEST_F(CliEndToEnd, BadUsageIsRefusedWithExitTwoAndNothingDone) {
  MakeFile("A.TXT");
  struct Case {
    std::vector<std::string> args;
    std::string said;
  };
  const Case cases[] = {
      {{"-x", "A.TXT", "/step:4"}, "unknown option '-x'"},
      {{"--bogus", "A.TXT", "/step:4"}, "unknown option '--bogus'"},
      {{"A.TXT", "/stpe:4"}, "'/stpe:4' is not a switch"},
      {{"A.TXT", "/settings:Bogus", "/step:4"}, "'/settings:Bogus' is not a switch"},
      {{"A.TXT", "/placement9:x", "/step:4"}, "'/placement9:x' is not a switch"},
      {{"--files-from", "missing.list", "/step:4"}, "cannot read the list of files"},
  };
  for (const Case& c : cases) {
    const CliResult result = Run(c.args);
    EXPECT_EQ(result.exitCode, 2) << c.said;
    EXPECT_THAT(result.err, HasSubstr("tessaly-cli: " + c.said)) << result.err;
    EXPECT_EQ(result.out, "") << c.said;
  }
  EXPECT_EQ(Names(), (std::set<std::string>{"A.TXT"}));
  EXPECT_EQ(Names(registry), (std::set<std::string>{}));
  // The raw text keeps its forgiving reading.
  EXPECT_EQ(Run({"--command-line", ModelPath("A.TXT") + " /stpe:4 /settings:Bogus"}).exitCode, 0);
}

TEST_F(CliEndToEnd, DryRunShowsEachFileAndTouchesNothing) {
  MakeFile("x (1).TXT");
  MakeFile("y (1).TXT");
  MakeFile("y .txt");
  const std::vector<std::string> args = {"x (1).TXT", "y (1).TXT", "/settings:RemoveNumbers",
                                         "/step:4"};
  std::vector<std::string> dryRun = {"-n"};
  dryRun.insert(dryRun.end(), args.begin(), args.end());
  const CliResult result = Run(dryRun);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(Names(), (std::set<std::string>{"x (1).TXT", "y (1).TXT", "y .txt"}));
  EXPECT_EQ(Names(registry), (std::set<std::string>{}));  // no setting stored
  EXPECT_EQ(result.out, files + "/x (1).TXT -> " + files + "/x .txt\n" + files + "/y (1).TXT -> " +
                            files + "/y .txt\n");
  dryRun.push_back("--json");
  std::vector<std::string> codes;
  for (const std::string& line : Lines(Run(dryRun).out)) {
    const auto object = ParseJsonObject(line);
    codes.push_back(object ? object->at("code") : "(no JSON) " + line);
  }
  EXPECT_EQ(codes, (std::vector<std::string>{"would-rename", "would-clash"}));
}

TEST_F(CliEndToEnd, FilesFromANulSeparatedListAndTheLogAsJson) {
  // In the list's sorted order.
  const std::vector<std::string> names = {"NEW\nLINE.TXT", "SAY \"HI\".TXT", "SEMI;COLON.TXT"};
  const std::vector<std::string> newNames = {"new\nline.txt", "say \"hi\".txt", "semi;colon.txt"};
  std::string list;
  for (const std::string& name : names) {
    MakeFile(name);
    list += name + '\0';
  }
  std::ofstream(files + "/.list", std::ios::binary) << list;
  const CliResult result =
      Run({"-0", "--files-from", ".list", "--json", "/settings:LowerCase", "/step:4"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  const std::vector<std::string> lines = Lines(result.out);
  ASSERT_EQ(lines.size(), names.size()) << result.out;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto object = ParseJsonObject(lines[i]);
    ASSERT_TRUE(object) << lines[i];
    EXPECT_EQ(object->at("old"), files + "/" + names[i]);
    EXPECT_EQ(fs::path(object->at("new")).filename(), newNames[i]);
    EXPECT_EQ(object->at("outcome"), "(Completed)");
    EXPECT_EQ(object->at("code"), "completed");
  }
}

TEST_F(CliEndToEnd, UsageOnlyWhenAskedOrWhenThereIsNothingToDo) {
  const CliResult help = Run({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_THAT(help.out, HasSubstr("usage: tessaly-cli"));
  const CliResult nothing = Run({});
  EXPECT_EQ(nothing.exitCode, 2);
  EXPECT_THAT(nothing.err, HasSubstr("usage: tessaly-cli"));
  const CliResult version = Run({"--version"});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.out, "tessaly-cli (Tessaly) 1.0.14\n");
}

}  // namespace
}  // namespace tessaly::cli
