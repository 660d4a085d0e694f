#include "files/open_dialog.h"

#include <gtest/gtest.h>

#include "files/folder_browser.h"
#include "platform/memory/scripted_ui.h"

namespace tessaly {
namespace {

using namespace std::string_literals;

TEST(OpenDialog, AnswersBecomePathsJoinedBySemicolons) {
  const std::string a(120, 'a'), b(129, 'b'), e(246, 'e');
  struct Case {
    const char* name;
    OpenFileAnswer answer;
    std::string paths;
  };
  const Case cases[] = {
      {"one file", ScriptedUi::SingleFileAnswer("C:\\Docs\\a.txt"), "C:\\Docs\\a.txt"},
      {"one file without extension", ScriptedUi::SingleFileAnswer("C:\\Docs\\README"),
       "C:\\Docs\\README"},
      {"three files", ScriptedUi::MultipleFilesAnswer("C:\\Docs", {"a.txt", "b.txt", "c.txt"}),
       "C:\\Docs\\a.txt;C:\\Docs\\b.txt;C:\\Docs\\c.txt"},
      {"drive's root", ScriptedUi::MultipleFilesAnswer("C:\\", {"a.txt", "b.txt"}),
       "C:\\a.txt;C:\\b.txt"},
      {"last name of one character", ScriptedUi::MultipleFilesAnswer("C:\\D", {"ab", "c"}),
       "C:\\D\\ab"},
      {"last name of two characters", ScriptedUi::MultipleFilesAnswer("C:\\D", {"c", "ab"}),
       "C:\\D\\c;C:\\D\\ab"},
      // 257 and 256 characters: the answer's end is its pair of zeros,
      // wherever the buffer ends.
      {"filling the buffer", ScriptedUi::MultipleFilesAnswer("C:\\D", {a, b}),
       "C:\\D\\" + a + ";C:\\D\\" + b},
      {"one short of filling it", ScriptedUi::MultipleFilesAnswer("C:\\D", {e, "ab"}),
       "C:\\D\\" + e + ";C:\\D\\ab"},
      {"too long for the buffer",
       ScriptedUi::MultipleFilesAnswer("C:\\Docs", std::vector<std::string>(30, "long-name.txt")),
       ""},
      {"cancelled", OpenFileAnswer{}, ""},
      {"accepted but empty", OpenFileAnswer{true, "", 0}, ""},
  };
  for (const Case& c : cases) {
    ScriptedUi ui;
    ui.QueueOpenFileAnswer(c.answer);
    EXPECT_EQ(ShowOpenDialog(ui, kAllFilesFilter, "", "", kAddFilesFlags), c.paths) << c.name;
  }
}

TEST(OpenDialog, PassesTheRequestOn) {
  ScriptedUi ui;
  ShowOpenDialog(ui, kAllFilesFilter, "txt", "C:\\Docs", kAddFilesFlags);
  ASSERT_EQ(ui.openFileRequests().size(), 1u);
  EXPECT_EQ(ui.openFileRequests()[0], (OpenFileRequest{"*.*|*.*", "txt", "C:\\Docs", 0x382204}));
}

TEST(OpenDialog, TokensAreCutOffTheFront) {
  std::string text = "ab\0cd;"s;
  EXPECT_EQ(NextToken(text, "\0"s), "ab\0"s);
  EXPECT_EQ(NextToken(text, ";;"), "");  // no separator: nothing taken
  EXPECT_EQ(NextToken(text, ";"), "cd;");
  text = "x\0y"s;
  EXPECT_EQ(NextNullPiece(text), "x");
  EXPECT_EQ(text, "y");
}

TEST(FolderBrowser, GivesWhatTheShellsBufferHolds) {
  ScriptedUi ui;
  for (std::string folder :
       {"C:\\Photos\0old text"s, std::string(259, 'x'), std::string(260, 'x')}) {
    ui.QueueFolder(folder);
  }
  EXPECT_EQ(BrowseForFolder(ui, "Select Directory to Add", "C:\\"), "C:\\Photos");
  EXPECT_EQ(BrowseForFolder(ui, "t", ""), std::string(259, 'x'));
  EXPECT_EQ(BrowseForFolder(ui, "t", ""), "");  // no room for the closing zero
  EXPECT_EQ(BrowseForFolder(ui, "t", ""), "");  // cancelled
  EXPECT_EQ(ui.folderQuestions()[0].title, "Select Directory to Add");
  EXPECT_EQ(ui.folderQuestions()[0].startFolder, "C:\\");
}

}  // namespace
}  // namespace tessaly
