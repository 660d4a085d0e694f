#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/directory_walk.h"
#include "files/file_list.h"
#include "files/folder_browser.h"
#include "files/list_search.h"
#include "files/open_dialog.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/scripted_ui.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> Texts(const ListBox& list) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < list.ListCount(); ++i) texts.push_back(list.List(i));
  return texts;
}

TEST(FileList, AddRuleKeepsTheFirstCaseAndTheSortedOrder) {
  ListBox list(/*sorted=*/true);
  EXPECT_EQ(AddToFileList(list, "C:\\b.txt"), AddResult::kAdded);
  EXPECT_EQ(AddToFileList(list, "C:\\A.txt"), AddResult::kAdded);
  EXPECT_EQ(AddToFileList(list, "c:\\B.TXT"), AddResult::kDuplicate);
  EXPECT_EQ(AddToFileList(list, "C:\\\\b.txt"), AddResult::kAdded);  // no normalising
  EXPECT_THAT(Texts(list), ElementsAre("C:\\\\b.txt", "C:\\A.txt", "C:\\b.txt"));
}

TEST(FileList, RefusesEntriesBeyondTheLimit) {
  ListBox list(/*sorted=*/true);
  for (std::size_t i = 0; i < kMaxListEntries; ++i) {
    ASSERT_EQ(AddToFileList(list, "f" + std::to_string(i)), AddResult::kAdded);
  }
  EXPECT_EQ(AddToFileList(list, "one more"), AddResult::kListFull);
  EXPECT_EQ(AddToFileList(list, "F7"), AddResult::kDuplicate);
  EXPECT_EQ(list.ListCount(), kMaxListEntries);
}

TEST(FileList, RemoveSelectedTakesExactlyTheSelectedRows) {
  ListBox list(/*sorted=*/true);
  for (const char* path : {"a", "b", "c", "d", "e", "f"}) list.AddItem(path);
  for (std::size_t i : {0u, 2u, 3u, 5u}) list.SetSelected(i, true);
  removeSelected(list);
  EXPECT_THAT(Texts(list), ElementsAre("b", "e"));
  removeSelected(list);  // nothing selected: nothing changes
  EXPECT_EQ(list.ListCount(), 2u);
}

TEST(ListSearch, ExactAndPrefixSearchesIgnoreCaseAndWrap) {
  ListBox list;
  for (const char* text : {"Alpha", "beta", "ALPHABET", "Gamma"}) list.AddItem(text);
  EXPECT_EQ(findInListBox(list, "alphabet"), 2);
  EXPECT_EQ(findInListBox(list, "alph"), -1);
  EXPECT_EQ(FindListEntry(list, "alph", -1, false), 0);
  EXPECT_EQ(FindListEntry(list, "alph", 0, false), 2);
  EXPECT_EQ(FindListEntry(list, "alph", 2, false), 0);  // wraps to the top
  ComboBox combo;
  combo.AddItem("Document Name");
  combo.AddItem("document name");
  EXPECT_EQ(FindListEntry(combo, "DOCUMENT NAME", -1, true), 0);
  EXPECT_EQ(FindListEntry(combo, "doc", 0, false), 1);
  EXPECT_EQ(FindListEntry(combo, "none", -1, false), -1);
}

TEST(DirectoryWalk, OwnFilesFirstThenEachSubtreeWithoutHiddenOrSystemEntries) {
  MemoryFileSystem files;
  files.AddFile("C:\\Top\\b.txt");
  files.AddFile("C:\\Top\\README");  // no extension: "*.*" still matches
  files.AddFile("C:\\Top\\.hidden", attr::kHidden);
  files.AddFile("C:\\Top\\locked.txt", attr::kReadOnly);
  files.AddFile("C:\\Top\\Sub\\c.txt");
  files.AddFile("C:\\Top\\Sub\\Deeper\\d.txt");
  files.AddFile("C:\\Top\\pipe.txt", attr::kSystem);
  files.AddFile("C:\\Top\\Z\\f.txt");
  files.MakeUnreadable("C:\\Top\\Z");

  const auto flat = ListFiles(files, "C:\\Top", "*.*", false);
  EXPECT_THAT(flat, ::testing::UnorderedElementsAre("C:\\Top\\b.txt", "C:\\Top\\README",
                                                    "C:\\Top\\locked.txt"));
  const auto deep = ListFiles(files, "C:\\Top\\", "*.txt;*.TXT", true);
  EXPECT_THAT(deep, ::testing::IsSupersetOf({"C:\\Top\\Sub\\c.txt", "C:\\Top\\Sub\\Deeper\\d.txt"}));
  EXPECT_THAT(deep, ::testing::Not(::testing::Contains(::testing::HasSubstr("pipe.txt"))));
  EXPECT_THAT(deep, ::testing::Not(::testing::Contains(::testing::HasSubstr("f.txt"))));
  EXPECT_EQ(std::count(deep.begin(), deep.end(), "C:\\Top\\b.txt"), 1);  // two patterns, one path
  // The folder's own files come before any subfolder's.
  const auto own = std::find(deep.begin(), deep.end(), "C:\\Top\\locked.txt");
  const auto sub = std::find(deep.begin(), deep.end(), "C:\\Top\\Sub\\c.txt");
  EXPECT_LT(own, sub);
  EXPECT_THAT(ListFiles(files, "C:\\Nowhere", "*.*", true), ElementsAre());
}

TEST(DirectoryWalk, RootGetsNoSecondBackslash) {
  MemoryFileSystem files;
  files.AddFile("D:\\a.txt");
  EXPECT_THAT(ListFiles(files, "D:\\", "*.*", false), ElementsAre("D:\\a.txt"));
}

TEST(OpenDialog, AnswersBecomePathsJoinedBySemicolons) {
  struct Case {
    const char* name;
    OpenFileAnswer answer;
    const char* paths;
  };
  const Case cases[] = {
      {"one file", ScriptedUi::SingleFileAnswer("C:\\Docs\\a.txt"), "C:\\Docs\\a.txt"},
      {"one file without extension", ScriptedUi::SingleFileAnswer("C:\\Docs\\README"),
       "C:\\Docs\\README"},
      {"three files", ScriptedUi::MultipleFilesAnswer("C:\\Docs", {"a.txt", "b.txt", "cc"}),
       "C:\\Docs\\a.txt;C:\\Docs\\b.txt;C:\\Docs\\cc"},
      {"root folder", ScriptedUi::MultipleFilesAnswer("C:\\", {"a.txt", "b.txt"}),
       "C:\\a.txt;C:\\b.txt"},
      {"last name of one character is lost",
       ScriptedUi::MultipleFilesAnswer("C:\\D", {"ab", "c"}), "C:\\D\\ab"},
      {"too long for the buffer",
       ScriptedUi::MultipleFilesAnswer("C:\\Docs", std::vector<std::string>(30, "long-name.txt")),
       ""},
      {"cancelled", OpenFileAnswer{}, ""},
  };
  for (const Case& c : cases) {
    ScriptedUi ui;
    ui.QueueOpenFileAnswer(c.answer);
    EXPECT_EQ(ShowOpenDialog(ui, kAllFilesFilter, "", "", kAddFilesFlags), c.paths) << c.name;
    ASSERT_EQ(ui.openFileRequests().size(), 1u);
    EXPECT_EQ(ui.openFileRequests()[0].flags, 0x382204u);
    EXPECT_EQ(ui.openFileRequests()[0].filter, "*.*|*.*");
  }
}

TEST(OpenDialog, TokensAreCutOffTheFront) {
  std::string text = std::string("ab\0cd", 5);
  EXPECT_EQ(NextToken(text, std::string(1, '\0')), std::string("ab\0", 3));
  EXPECT_EQ(text, "cd");
  EXPECT_EQ(NextToken(text, ";"), "");
  EXPECT_EQ(text, "cd");
  text = std::string("x\0y", 3);
  EXPECT_EQ(NextNullPiece(text), "x");
  EXPECT_EQ(text, "y");
}

TEST(FolderBrowser, AskedWithTitleAndStartFolder) {
  ScriptedUi ui;
  ui.QueueFolder("C:\\Photos");
  EXPECT_EQ(BrowseForFolder(ui, "Select Directory to Add", ""), "C:\\Photos");
  EXPECT_EQ(BrowseForFolder(ui, "Again", "C:\\"), "");
  EXPECT_EQ(ui.folderQuestions()[1].startFolder, "C:\\");
  ui.QueueFolder(std::string(300, 'x'));  // does not fit the shell's buffer
  EXPECT_EQ(BrowseForFolder(ui, "Long", ""), "");
}

}  // namespace
}  // namespace tessaly
