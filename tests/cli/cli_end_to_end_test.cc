// tessaly-cli on real temporary folders, as a script would run it: no
// terminal, settings in the test's own folder.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli_runner.h"
#include "platform/posix/native_path.h"
#include "platform/posix/registry_location.h"
#include "platform/posix/sqlite_registry.h"
#include "settings/settings_store.h"
#include "temp_folder.h"

namespace tessaly::cli {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

class CliEndToEnd : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::create_directory(files);
    fs::create_directory(registry);
  }

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

  testing::TempFolder root;
  std::string files = root.path() + "/files";
  std::string registry = root.path() + "/registry";
};

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
  // The log's layout is the wizard's own (tested there), with Unix line ends.
  ASSERT_EQ(lines.size(), 13u) << result.out;
  EXPECT_THAT(lines[0], StartsWith("Renaming Started at: "));
  EXPECT_THAT(lines[5],
              EndsWith("/Alpha One.TXT > " + files.substr(0, 6) + ".../alpha one (Completed)"));
  EXPECT_EQ(lines[10], "3 files where renamed successfully.");
  EXPECT_THAT(lines[12], StartsWith("Renaming Completed at: "));
  // Output that is no terminal gets no colour and one progress line per window.
  EXPECT_THAT(result.out, Not(HasSubstr("\x1b[")));
  EXPECT_THAT(result.err, HasSubstr("Generating Renamed Files Preview...  100%\n"));

  // Step 3 stored the options in the test's own registry.
  SqliteRegistry stored(RegistryLocationIn(registry));
  SettingsStore store(stored);
  EXPECT_EQ(store.GetProgramSetting("Settings", "chkLowercase", SettingValue::FromInt32(-1))
                .AsWholeNumber(),
            1);
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
  if (traced) {
    EXPECT_EQ(Lines(Content("../registry/renames")).size(), 1u) << Content("../registry/renames");
  }
  EXPECT_EQ(Content("a.txt"), "mine");
  EXPECT_THAT(Lines(result.out),
              Contains(EndsWith("/a.TXT > " + files.substr(0, 6) + ".../a.txt (Completed)")));
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
  // Every content still there, whatever name it ended under.
  std::multiset<std::string> contents;
  for (const std::string& name : Names()) contents.insert(Content(name));
  EXPECT_EQ(contents, (std::multiset<std::string>{"FOO.txt", "Foo.txt", "foo.txt"}));
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

// Short runs, one row each: the files made, the words given, what the
// folder holds after, the exit status, and what the two outputs hold.
TEST_F(CliEndToEnd, ShortRuns) {
  struct Row {
    std::vector<std::string> made;
    std::vector<std::string> args;
    std::set<std::string> after;
    int exitCode;
    std::string outHas, errHas;
  };
  const Row rows[] = {
      // Relative paths, and a placement value the shell has unquoted.
      {{"Alpha One.TXT", "BETA.txt"},
       {"Alpha One.TXT", "BETA.txt", "/settings:LowerCase", "/placement2:(none)", "/step:4", "/exit"},
       {"alpha one", "beta"}, 0, "2 files where renamed successfully.", ""},
      // Missing paths, folders and repeats are not listed.
      {{"real.TXT"}, {"real.TXT", "ghost.TXT", "folder", "REAL.txt", "/step:4", "/exit"},
       {"folder", "real.txt"}, 0, "\n1 total files.\n", ""},
      {{"Draft_Copy.TXT"}, {"Draft_Copy.TXT", "/settings:RemoveUnderscores", "/step:3"},
       {"Draft_Copy.TXT"}, 0, "Rename Files Preview:\n    FILES/Draft Copy.txt",
       "Generating Renamed Files Preview...  100%\n"},
      {{}, {"/DefineUnwantedFormatting", "/exit"}, {}, 0, "\n  [ ] Copy Of\n", ""},
      {{}, {}, {}, 2, "", "usage: tessaly-cli"},
      // Bad usage does nothing and ends with 2.
      {{"A.TXT"}, {"A.TXT", "/stpe:4"}, {"A.TXT"}, 2, "", "'/stpe:4' is not a switch"},
      {{}, {"--files-from", "missing.list", "/step:4"}, {}, 2, "", "cannot read the list"},
      {{}, {"--version"}, {}, 0, "tessaly-cli (Tessaly) 1.0.14\n", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.args.empty() ? "(no words)" : row.args.front());
    fs::remove_all(files);
    fs::create_directory(files);
    if (row.after.contains("folder")) fs::create_directory(files + "/folder");
    for (const std::string& name : row.made) MakeFile(name);
    const CliResult result = Run(row.args);
    EXPECT_EQ(result.exitCode, row.exitCode) << result.err;
    EXPECT_EQ(Names(), row.after);
    const std::string outHas = std::regex_replace(row.outHas, std::regex("FILES"), files);
    if (outHas.empty()) {
      EXPECT_EQ(result.out, "");
    } else {
      EXPECT_THAT(result.out, HasSubstr(outHas));
    }
    EXPECT_THAT(result.err, HasSubstr(row.errHas));
  }
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
  const std::vector<std::string> json = Lines(Run(dryRun).out);
  ASSERT_EQ(json.size(), 2u);
  EXPECT_THAT(json[0], HasSubstr(R"("code":"would-rename"})"));
  EXPECT_THAT(json[1], HasSubstr(R"("code":"would-clash"})"));
}

TEST_F(CliEndToEnd, FilesFromANulSeparatedListAndTheLogAsJson) {
  for (const char* name : {"NEW\nLINE.TXT", "SAY \"HI\".TXT"}) MakeFile(name);
  std::ofstream(files + "/.list", std::ios::binary)
      << std::string("NEW\nLINE.TXT\0SAY \"HI\".TXT", 25) << '\0';
  const CliResult result =
      Run({"-0", "--files-from", ".list", "--json", "/settings:LowerCase", "/step:4"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  // One object a line; the name's newline and quotes escaped.
  const std::string line = R"j({"old":"F/NEW\nLINE.TXT","new":"F/new\nline.txt",)j"
                           R"j("outcome":"(Completed)","code":"completed"})j";
  const std::string quoted = R"j({"old":"F/SAY \"HI\".TXT","new":"F/say \"hi\".txt",)j"
                             R"j("outcome":"(Completed)","code":"completed"})j";
  const auto inFiles = [&](std::string text) {
    for (std::size_t at = 0; (at = text.find("F/", at)) != std::string::npos;) {
      text.replace(at, 1, files);
      at += files.size();
    }
    return text;
  };
  EXPECT_EQ(Lines(result.out), (std::vector<std::string>{inFiles(line), inFiles(quoted)}));
}

}  // namespace
}  // namespace tessaly::cli
