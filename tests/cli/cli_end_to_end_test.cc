// tessaly-cli on real temporary folders, as a script would run it: no
// terminal, settings in the test's own folder.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "cli_runner.h"
#include "platform/posix/native_path.h"
#include "temp_folder.h"

namespace tessaly::cli {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using Names = std::set<std::string>;

std::string Read(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

class CliEndToEnd : public ::testing::Test {
 protected:
  // Empty folders, then `made` in the files' one, each file holding its name.
  void Fresh(const std::vector<std::string>& made) {
    for (const std::string& folder : {files, registry}) {
      fs::remove_all(folder);
      fs::create_directory(folder);
    }
    for (const std::string& name : made) {
      fs::create_directories(fs::path(files + "/" + name).parent_path());
      std::ofstream(files + "/" + name) << name;
    }
  }
  // What the files' folder holds, folders within included.
  Names Held() {
    Names names;
    for (const auto& entry : fs::recursive_directory_iterator(files)) {
      names.insert(entry.path().lexically_relative(files).string());
    }
    return names;
  }

  testing::TempFolder root;
  // Settings on a memory file system where there is one: a fresh settings
  // file for every run is quick there.
  testing::TempFolder memory{fs::is_directory("/dev/shm") ? "/dev/shm" : ""};
  std::string files = root.path() + "/files";
  std::string registry = memory.path() + "/registry";
};

// The one text a script would give, paths joined by ";": the log shows
// native paths, and the options are kept for the next run.
TEST_F(CliEndToEnd, CommandLineTextRunsAndItsOptionsAreKept) {
  Fresh({"Alpha One.TXT", "BETA.txt"});
  const CliResult result = RunCli(
      {"--command-line", ToModelPath(files + "/Alpha One.TXT;" + files + "/BETA.txt") +
                             R"q( /settings:LowerCase /placement2:"(none)" /step:4 /hide /exit)q"},
      files, registry);
  const std::string shown = files.substr(0, 6) + ".../";
  EXPECT_THAT(result.out,
              HasSubstr(" - " + shown + "Alpha One.TXT > " + shown + "alpha one (Completed)\n"));
  std::ofstream(files + "/GAMMA.TXT") << "GAMMA.TXT";
  RunCli({"GAMMA.TXT", "/step:4"}, files, registry);
  EXPECT_EQ(Held(), (Names{"alpha one", "beta", "gamma.txt"}));
}

// Where the disk tells letter case apart, the new name is free: one rename.
TEST_F(CliEndToEnd, CaseOnlyRenameIsOneRename) {
  if (!fs::exists("/usr/bin/strace")) GTEST_SKIP() << "no strace";
  Fresh({"a.TXT"});
  const std::string renames = root.path() + "/renames";
  RunCli({"a.TXT", "/step:4", "/exit"}, files, registry,
         {"/usr/bin/strace", "-f", "-qq", "-o", renames, "-e",
          "trace=rename,renameat,renameat2,link,linkat"});
  EXPECT_EQ(Held(), (Names{"a.txt"}));
  EXPECT_EQ(std::ranges::count(Read(renames), '\n'), 1) << Read(renames);
}

// A run taken back: the list says what became of it, a dry run touches
// nothing, the undo puts each file back with its content (from under its
// temporary name too) and can itself be undone; the journals are their
// owner's alone.
TEST_F(CliEndToEnd, UndoTakesBackTheLastRunAndCanBeUndone) {
  Fresh({"A.TXT", "B.TXT", "b.txt"});
  RunCli({"A.TXT", "B.TXT", "/settings:LowerCase", "/step:4"}, files, registry);
  const Names renamed{"a.txt", "b.txt", "b.txt.temp"};
  ASSERT_EQ(Held(), renamed);
  EXPECT_THAT(RunCli({"--list-runs"}, files, registry).out, HasSubstr("     2  complete\n"));
  EXPECT_THAT(RunCli({"-n", "--undo"}, files, registry).out,
              HasSubstr("/b.txt.temp > " + files.substr(0, 6) + ".../B.TXT (Would Be Restored)\n"));
  EXPECT_EQ(Held(), renamed);
  const CliResult undo = RunCli({"--undo", "--json"}, files, registry);
  EXPECT_EQ(undo.exitCode, 0) << undo.err;
  EXPECT_THAT(undo.out, HasSubstr("{\"old\":\"" + files + "/b.txt.temp\",\"new\":\"" + files +
                                  "/B.TXT\",\"outcome\":\"(Restored)\",\"code\":\"restored\"}\n"));
  EXPECT_EQ(Held(), (Names{"A.TXT", "B.TXT", "b.txt"}));
  for (const std::string& name : Held()) EXPECT_EQ(Read(files + "/" + name), name);
  EXPECT_EQ(RunCli({"--undo"}, files, registry).err, "tessaly-cli: no run to undo\n");
  const std::string list = RunCli({"--list-runs", "--json"}, files, registry).out;
  std::smatch undoName;
  ASSERT_TRUE(std::regex_search(list, undoName, std::regex("\"run\":\"([^\"]+)\",[^\n]*\"undoes\"")));
  EXPECT_THAT(list, HasSubstr("\"state\":\"undone\"}"));
  EXPECT_EQ(RunCli({"--undo", undoName[1]}, files, registry).exitCode, 0);
  EXPECT_EQ(Held(), renamed);
  for (const auto& entry : fs::recursive_directory_iterator(registry + "/runs")) {
    EXPECT_EQ(fs::status(entry).permissions() & fs::perms::all, fs::perms::owner_read | fs::perms::owner_write);
  }
  EXPECT_EQ(fs::status(registry + "/runs").permissions() & fs::perms::all, fs::perms::owner_all);
}

// One run a row: the files made, the words given, what the folder holds
// after (nothing: as made), the exit status, and what the two outputs hold
// (FILES for the folder). Whatever the run, no content is lost or doubled,
// a name made and still there holds its own content, and the output holds
// no escape.
TEST_F(CliEndToEnd, Runs) {
  struct Row {
    std::vector<std::string> made, args;
    Names after;
    int exitCode;
    std::string outHas, errHas, list = "";  // `list` is written to .list
    std::string link = "";                    // where a link "lnk" points, if any
  };
  const Row rows[] = {
      // Missing paths are named and fail the run; repeats are listed once,
      // and an empty folder brings nothing.
      {{"real.TXT"}, {"real.TXT", "ghost.TXT", "folder", "REAL.txt", "real.TXT", "/step:4"},
       {"folder", "real.txt"}, 1, "\n1 total files.\n",
       "tessaly-cli: left out, no such file or folder: " + files + "/ghost.TXT\n"},
      // A folder brings its files, and with -r its sub-folders' too.
      {{"d/A.TXT", "d/sub/B.TXT"}, {"d/", "/settings:LowerCase", "/step:4"},
       {"d", "d/a.txt", "d/sub", "d/sub/B.TXT"}, 0, "\n1 total files.\n", ""},
      {{"d/A.TXT", "d/sub/B.TXT"}, {"-r", "d", "/settings:LowerCase", "/step:4"},
       {"d", "d/a.txt", "d/sub", "d/sub/b.txt"}, 0, "\n2 total files.\n", ""},
      // A change of letter case alone goes through without a question, and
      // a name left as it was is no error.
      {{"a.TXT", "b.txt"}, {"a.TXT", "b.txt", "/step:4"}, {"a.txt", "b.txt"}, 0,
       "/a.TXT > " + files.substr(0, 6) + ".../a.txt (Completed)\n", ""},
      // Names that differ only in letter case are other files, never the
      // file itself, and all are listed.
      {{"B.TXT", "b.txt"}, {"B.TXT", "/settings:LowerCase", "/step:4"}, {"b.txt", "b.txt.temp"}, 1,
       "b.txt (Completed - Error Removing Temp File)",
       "Confirm Overwrite: The file 'b.txt' already exists. Would you like to overwrite this "
       "file?\nConfirm Overwrite: no terminal to ask, answering No\n"},
      {{"Foo.txt", "foo.txt", "FOO.txt"}, {"Foo.txt", "foo.txt", "FOO.txt"}, {}, 0, "",
       "stopped on step 1 with 3 files listed"},
      {{"Foo.txt", "foo.txt", "FOO.txt"},
       {"Foo.txt", "foo.txt", "FOO.txt", "/settings:LowerCase", "/step:4"},
       {"foo.txt", "foo.txt.temp", "FOO.txt"}, 1, "(No Change}", ""},
      // With "Include Path" the folders of the new path are those that
      // match ignoring case (the temporary folder's name has capitals too).
      {{"Holiday Photos/IMG_1.JPG"},
       {"Holiday Photos/IMG_1.JPG", "/settings:LowerCase", "/settings:IncludePaths", "/step:4"},
       {"Holiday Photos", "Holiday Photos/img_1.jpg"}, 0, "(Completed)", ""},
      // Without it the folder stays as it is, whatever the options would do.
      {{"my_photos.2024/a_b.c.TXT"},
       {"my_photos.2024/a_b.c.TXT", "/settings:RemoveUnderscores", "/settings:RemoveExtraSpaces",
        "/step:4"},
       {"my_photos.2024", "my_photos.2024/a bc.txt"}, 0, "(Completed)", ""},
      {{"Draft_Copy.TXT"}, {"Draft_Copy.TXT", "/settings:RemoveUnderscores", "/step:3"}, {}, 0,
       "Rename Files Preview:\n    FILES/Draft Copy.txt", "Generating Renamed Files Preview...  100%\n"},
      {{}, {"/DefineUnwantedFormatting", "/exit"}, {}, 0, "\n  [ ] Copy Of\n", ""},
      // Each word is one file, whatever bytes it holds: ";" splits nothing,
      // quotes stay in the name, and a backslash injects no "/step:4".
      {{"ONE;TWO.TXT", "ONE", "TWO.TXT", "SAY \"HI\".TXT", "SAY HI.TXT"},
       {"ONE;TWO.TXT", "SAY \"HI\".TXT", "/settings:LowerCase", "/step:4"},
       {"one;two.txt", "ONE", "TWO.TXT", "say \"hi\".txt", "SAY HI.TXT"}, 0, "(Completed)", ""},
      {{"A.TXT", R"(X\step:4.TXT)"}, {"A.TXT", R"(X\step:4.TXT)", "/settings:LowerCase"}, {}, 0, "",
       "stopped on step 0 with 2 files listed"},
      // A leading "-" after "--", and names holding control characters.
      {{"-N.TXT", "TWO\nLINES.TXT", "EVIL\x1b[2J\x1b[HX.TXT"},
       {"/settings:LowerCase", "/step:4", "--", "-N.TXT", "TWO\nLINES.TXT", "EVIL\x1b[2J\x1b[HX.TXT"},
       {"-n.txt", "two\nlines.txt", "evil\x1b[2j\x1b[hx.txt"}, 0,
       "/evil\\x1b[2j\\x1b[hx.txt (Completed)", ""},
      // A word that is an option and also names a file a glob brought in
      // is refused: nothing is read or renamed.
      {{"A.TXT", "B.TXT", "--files-from=.list"},
       {"--files-from=.list", "A.TXT", "/settings:LowerCase", "/step:4"},
       {"--files-from=.list", ".list", "A.TXT", "B.TXT"}, 2, "", "is an option and also names a file", "B.TXT\n"},
      // A path means what it means to the kernel: ".." behind a link leads
      // beside the link's target, and a name with a closing "/" is no file.
      {{"X.TXT", "t/X.TXT", "t/in/KEEP", "Y.TXT"},
       {"lnk/../X.TXT", "Y.TXT/", "/settings:LowerCase", "/step:4"},
       {"lnk", "t", "t/in", "t/in/KEEP", "t/x.txt", "X.TXT", "Y.TXT"}, 1, "1 total files.",
       "left out, no such file or folder: " + files + "/Y.TXT/\n", "", "t/in"},
      {{}, {std::string(256, 'L') + ".TXT", "/step:4"}, {}, 1, "",
       "left out, too long for this system: /"},
      // A path from the root that only begins like a switch is a file, so
      // without a switch the wizard opens on File Selection, and says so.
      {{"A.TXT"}, {"--json", "/showwiz/Photo.JPG", "A.TXT"}, {}, 1, "",
       "stopped on step 1 with 1 files listed"},
      // A dry run shows each change, paths in the current folder relative
      // to it, then a summary; it stores nothing, touches nothing, and a
      // clash fails it.
      {{"x (1).TXT", "y (1).TXT", "y .txt", "E\x1b[2J (1).TXT"},
       {"-n", "x (1).TXT", "y (1).TXT", "E\x1b[2J (1).TXT", "/settings:RemoveNumbers", "/step:4"}, {},
       1, "E\\x1b[2J (1).TXT -> E\\x1b[2J .txt\nx (1).TXT -> x .txt\ny (1).TXT -> y .txt\n",
       "tessaly-cli: 2 to rename, 0 unchanged, 1 clash\n"},
      {{"x (1).TXT", "y (1).TXT", "y .txt"},
       {"-n", "--json", "x (1).TXT", "y (1).TXT", "/settings:RemoveNumbers", "/step:4"}, {}, 1,
       R"j("code":"would-rename"}
{"old":"FILES/y (1).TXT","new":"FILES/y .txt","outcome":"(Would Clash)","code":"would-clash"})j", ""},
      // The log as JSON, one object a line, a name's newline, quotes and
      // backslash escaped.
      {{"NEW\nLINE.TXT", "SAY \"HI\".TXT", "BACK\\SLASH.TXT"},
       {"-0", "--files-from", ".list", "--json", "/settings:LowerCase", "/step:4"},
       {".list", "new\nline.txt", "say \"hi\".txt", "back\\slash.txt"}, 0,
       R"j({"old":"FILES/BACK\\SLASH.TXT","new":"FILES/back\\slash.txt","outcome":"(Completed)","code":"completed"}
{"old":"FILES/NEW\nLINE.TXT","new":"FILES/new\nline.txt","outcome":"(Completed)","code":"completed"}
{"old":"FILES/SAY \"HI\".TXT","new":"FILES/say \"hi\".txt","outcome":"(Completed)","code":"completed"})j",
       "", std::string("NEW\nLINE.TXT\0SAY \"HI\".TXT\0BACK\\SLASH.TXT\0", 42)},
      // "README" with the default placements gives "README.", which the
      // disk gets as Windows would store it.
      {{"README"}, {"--json", "README", "/step:4"}, {}, 0,
       R"j({"old":"FILES/README","new":"FILES/README","outcome":"(No Change}")j", ""},
      // A folder matched ignoring case is named as the disk spells it.
      {{"Z.TXT", "Sub/KEEP"},
       {"--json", "Z.TXT", "/placement1:sub\\", "/placement2:Document Name", "/placement3:extension",
        "/step:4"},
       {"Sub", "Sub/KEEP", "Sub/Z.txt"}, 0, R"j("new":"FILES/Sub/Z.txt")j", ""},
      // A raw command line: a relative path counts from the current folder,
      // and a dry run shows the run its text asks for.
      {{"A.TXT"}, {"-n", "--command-line", "A.TXT /settings:LowerCase /step:4"}, {}, 0,
       "A.TXT -> a.txt\n", ""},
      {{"A.TXT"}, {"-n", "--command-line", R"q(A.TXT /placement2:"/step:5" /step:4)q"}, {}, 0,
       R"(A.TXT -> A\\step:5)", ""},
      // Bad usage does nothing and ends with 2.
      {{}, {}, {}, 2, "", "usage: tessaly-cli"},
      {{"A.TXT"}, {"A.TXT", "/stpe:4"}, {}, 2, "", "'/stpe:4' is not a switch"},
      {{}, {"--files-from", "missing.list", "/step:4"}, {}, 2, "", "cannot read the list"},
      {{}, {"-0", "--files-from", "/dev/zero", "/step:4"}, {}, 2, "",
       "'/dev/zero' runs on for more than 4096 bytes without a name ending"},
      {{}, {"--version"}, {}, 0, "tessaly-cli (Tessaly) 1.0.14\n", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.args));
    Fresh(row.made);
    if (row.after.contains("folder")) fs::create_directory(files + "/folder");
    if (!row.list.empty()) std::ofstream(files + "/.list", std::ios::binary) << row.list;
    if (!row.link.empty()) fs::create_directory_symlink(row.link, files + "/lnk");
    const CliResult result = RunCli(row.args, files, registry);
    EXPECT_EQ(result.exitCode, row.exitCode) << result.err;
    const std::multiset<std::string> made(row.made.begin(), row.made.end());
    EXPECT_EQ(Held(), row.after.empty() ? Names(made.begin(), made.end()) : row.after);
    std::multiset<std::string> contents;
    for (const std::string& name : Held()) {
      if (!fs::is_regular_file(files + "/" + name) || name == ".list") continue;
      contents.insert(Read(files + "/" + name));
      EXPECT_TRUE(!made.contains(name) || Read(files + "/" + name) == name) << name;
    }
    EXPECT_EQ(contents, made);
    const bool dryRun = !row.args.empty() && row.args[0] == "-n";
    EXPECT_TRUE(!dryRun || fs::is_empty(registry)) << "a dry run stores nothing";
    const std::string outHas = std::regex_replace(row.outHas, std::regex("FILES"), files);
    EXPECT_TRUE(outHas.empty() ? result.out.empty() : result.out.find(outHas) != std::string::npos)
        << result.out;
    EXPECT_THAT(result.out, ::testing::Not(HasSubstr("\x1b")));
    EXPECT_THAT(result.err, HasSubstr(row.errHas));
  }
}

}  // namespace
}  // namespace tessaly::cli
