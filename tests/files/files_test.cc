// Choosing files: the directory walk, the sorted file list, the dialogs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "files/directory_walk.h"
#include "files/file_list.h"
#include "files/folder_browser.h"
#include "files/list_search.h"
#include "files/open_dialog.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/scripted_ui.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"
#include "temp_folder.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;
using namespace std::string_literals;

TEST(DirectoryWalk, OwnFilesPatternByPatternThenEachSubtreeInTurn) {
  MemoryFileSystem files;
  for (const char* path : {"C:\\Top\\b.txt", "C:\\Top\\README", "C:\\Top\\a.jpg", "C:\\Top\\A\\c.txt",
                           "C:\\Top\\A\\Deep\\d.txt", "C:\\Top\\B\\e.txt", "C:\\boot.ini"}) {
    files.AddFile(path);
  }
  files.AddFile("C:\\Top\\.hidden.txt", attr::kHidden);
  files.AddFile("C:\\Top\\locked.txt", attr::kReadOnly);
  files.AddFile("C:\\Top\\pipe.txt", attr::kSystem);
  files.AddFile("C:\\Top\\.cache", attr::kDirectory | attr::kHidden);
  files.AddFile("C:\\Top\\.cache\\f.txt");
  EXPECT_THAT(ListFiles(files, "C:\\Top", "*.*", false),
              ElementsAre("C:\\Top\\a.jpg", "C:\\Top\\b.txt", "C:\\Top\\locked.txt", "C:\\Top\\README"));
  EXPECT_THAT(ListFiles(files, "C:\\Top\\", "*.txt;*.jpg", true),
              ElementsAre("C:\\Top\\b.txt", "C:\\Top\\locked.txt", "C:\\Top\\a.jpg",
                          "C:\\Top\\A\\c.txt", "C:\\Top\\A\\Deep\\d.txt", "C:\\Top\\B\\e.txt"));
  // A drive's root gets no second backslash; no pattern, no file.
  EXPECT_THAT(ListFiles(files, "C:\\", "*.ini", false), ElementsAre("C:\\boot.ini"));
  EXPECT_THAT(ListFiles(files, "C:\\Top", "", true), ElementsAre());
  files.MakeUnreadable("C:\\Top\\A");  // adds nothing
  EXPECT_THAT(ListFiles(files, "C:\\Top", "*.txt", true),
              ElementsAre("C:\\Top\\b.txt", "C:\\Top\\locked.txt", "C:\\Top\\B\\e.txt"));
}

// Where letter case counts, case twins are two files; a path that several
// patterns match still comes once.
TEST(DirectoryWalk, NoPathTwiceAsTheFileSystemTellsNamesApart) {
  MemoryFileSystem files(MemoryFileSystem::LetterCase::kExact);
  for (const char* path : {"C:\\F\\a.txt", "C:\\F\\A.txt", "C:\\F\\b.txt"}) files.AddFile(path);
  EXPECT_THAT(ListFiles(files, "C:\\F", "*.txt;*.TXT;b.*", false),
              ElementsAre("C:\\F\\A.txt", "C:\\F\\a.txt", "C:\\F\\b.txt"));
}

// On a real disk, links may lead back up the tree or twice to one folder:
// the walk ends, and every file comes once.
TEST(DirectoryWalk, LinksToFoldersAreFollowedOnceAndLoopsEnd) {
  namespace fs = std::filesystem;
  const testing::TempFolder folder;
  const std::string& root = folder.path();
  fs::create_directories(root + "/a/b");
  std::ofstream(root + "/a/b/x.txt") << "x";
  std::ofstream(root + "/a/y.txt") << "y";
  fs::create_directory_symlink("..", root + "/a/b/up");  // back to a
  fs::create_directory_symlink("a/b", root + "/again");  // a second way to b
  PosixFileSystem files;
  std::vector<std::string> names;
  for (const std::string& path : ListFiles(files, ToModelPath(root), "*.txt", true)) {
    names.push_back(path.substr(path.find_last_of('\\') + 1));
  }
  EXPECT_THAT(names, ::testing::UnorderedElementsAre("x.txt", "y.txt"));
}

std::vector<std::string> Texts(const ListBox& list) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < list.ListCount(); ++i) texts.emplace_back(list.List(i));
  return texts;
}

TEST(FileList, KeepsTheFirstCaseAndTheSortedOrderWithoutNormalising) {
  ListBox list(/*sorted=*/true);
  const std::vector<std::string> arrivals = {"C:\\b.txt", "C:\\A.txt", "c:\\B.TXT", "C:\\\\b.txt",
                                             "C:\\PROGRA~1\\b.txt", "C:\\Ä.txt", "c:\\ä.TXT"};
  EXPECT_EQ(AddAllToFileList(list, arrivals), (AddTally{5, 2, 0}));
  EXPECT_THAT(Texts(list), ElementsAre("C:\\\\b.txt", "C:\\A.txt", "C:\\b.txt", "C:\\PROGRA~1\\b.txt",
                                       "C:\\Ä.txt"));
  // A drop without files adds nothing, whatever rides along.
  DropData text;
  text.hasFiles = false;
  text.files = {"C:\\c.txt"};
  EXPECT_EQ(AddDroppedFiles(list, text), AddTally{});
}

// Where the file system tells letter case apart, so does the list.
TEST(FileList, SameEntryAsTheFileSystemTakesNames) {
  ListBox list(/*sorted=*/true);
  list.SetSameEntryKey([](std::string_view path) { return std::string(path); });
  EXPECT_EQ(AddAllToFileList(list, {"C:\\b.txt", "C:\\B.txt", "C:\\b.txt"}), (AddTally{2, 1, 0}));
  list.RemoveItem(static_cast<std::size_t>(list.FindExact("C:\\b.txt")));
  EXPECT_EQ(AddToFileList(list, "C:\\B.txt"), AddResult::kDuplicate);
  list.Clear();
  EXPECT_EQ(AddToFileList(list, "C:\\B.txt"), AddResult::kAdded);
}

TEST(FileList, RefusesNewPathsAtTheLimitAndTallies) {
  ListBox list(/*sorted=*/true);
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < kMaxListEntries - 1; ++i) paths.push_back("f" + std::to_string(i));
  ASSERT_EQ(AddAllToFileList(list, paths).added, kMaxListEntries - 1);
  DropData drop;
  drop.files = {"x1", "F7", "x2", "x1", "x3"};
  EXPECT_EQ(AddDroppedFiles(list, drop), (AddTally{1, 2, 2}));
  EXPECT_EQ(list.ListCount(), kMaxListEntries);
  EXPECT_EQ(AddToFileList(list, "x2"), AddResult::kListFull);
  EXPECT_EQ(AddToFileList(list, "X1"), AddResult::kDuplicate);
}

TEST(FileList, RemoveSelectedTakesExactlyTheSelectedRows) {
  const std::pair<std::vector<std::size_t>, std::vector<std::string>> cases[] = {
      {{0, 2, 3, 5}, {"b", "e"}}, {{}, {"a", "b", "c", "d", "e", "f"}}, {{0, 1, 2, 3, 4, 5}, {}}};
  for (const auto& [selected, left] : cases) {
    ListBox list(/*sorted=*/true);
    for (const char* path : {"f", "e", "d", "c", "b", "a"}) list.AddItem(path);
    for (std::size_t i : selected) list.SetSelected(i, true);
    removeSelected(list);
    EXPECT_EQ(Texts(list), left);
    EXPECT_EQ(list.SelCount(), 0u);
  }
}

TEST(ListSearch, FollowsTheListMessages) {
  ListBox unsorted;
  ListBox sorted(/*sorted=*/true);
  ComboBox combo;
  for (const char* text : {"Alpha", "beta", "ALPHABET", "Gamma"}) {
    unsorted.AddItem(text);
    sorted.AddItem(text);
    combo.AddItem(text);
  }
  const struct {
    const char* key;
    int start;
    bool exact;
    int unsortedList, sortedList;  // the combo box answers as the unsorted list
  } cases[] = {
      {"alphabet", -1, true, 2, 1}, {"alph", -1, true, -1, -1}, {"alph", 0, false, 2, 1},
      {"alph", 2, false, 0, 0},     {"b", 99, false, 1, 2},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FindListEntry(unsorted, c.key, c.start, c.exact), c.unsortedList) << c.key << c.start;
    EXPECT_EQ(FindListEntry(combo, c.key, c.start, c.exact), c.unsortedList) << c.key << c.start;
    EXPECT_EQ(FindListEntry(sorted, c.key, c.start, c.exact), c.sortedList) << c.key << c.start;
  }
  EXPECT_EQ(findInListBox(sorted, "BETA"), 2);
  EXPECT_EQ(findInListBox(sorted, "bet"), -1);
}

TEST(OpenDialog, AnswersBecomePathsJoinedBySemicolons) {
  const std::string a(120, 'a'), b(129, 'b'), e(246, 'e');
  const std::pair<OpenFileAnswer, std::string> cases[] = {
      {ScriptedUi::SingleFileAnswer("C:\\Docs\\README"), "C:\\Docs\\README"},
      {ScriptedUi::MultipleFilesAnswer("C:\\Docs", {"a.txt", "b.txt"}), "C:\\Docs\\a.txt;C:\\Docs\\b.txt"},
      {ScriptedUi::MultipleFilesAnswer("C:\\D", {"ab", "c"}), "C:\\D\\ab"},
      {ScriptedUi::MultipleFilesAnswer("C:\\D", {"c", "ab"}), "C:\\D\\c;C:\\D\\ab"},
      // 257 and 256 characters: the answer's end is its pair of zeros,
      // wherever the buffer ends.
      {ScriptedUi::MultipleFilesAnswer("C:\\D", {a, b}), "C:\\D\\" + a + ";C:\\D\\" + b},
      {ScriptedUi::MultipleFilesAnswer("C:\\D", {e, "ab"}), "C:\\D\\" + e + ";C:\\D\\ab"},
      {ScriptedUi::MultipleFilesAnswer("C:\\Docs", std::vector<std::string>(30, "long-name.txt")), ""},
      {OpenFileAnswer{}, ""},
  };
  for (const auto& [answer, paths] : cases) {
    ScriptedUi ui;
    ui.QueueOpenFileAnswer(answer);
    EXPECT_EQ(ShowOpenDialog(ui, kAllFilesFilter, "txt", "C:\\Docs", kAddFilesFlags), paths);
    EXPECT_EQ(ui.openFileRequests()[0], (OpenFileRequest{"*.*|*.*", "txt", "C:\\Docs", 0x382204}));
  }
}

TEST(FolderBrowser, GivesWhatTheShellsBufferHolds) {
  ScriptedUi ui;
  for (std::string folder : {"C:\\Photos\0old text"s, std::string(259, 'x'), std::string(260, 'x')}) {
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
