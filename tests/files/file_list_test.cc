#include "files/file_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/list_search.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> Texts(const ListBox& list) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < list.ListCount(); ++i) texts.push_back(list.List(i));
  return texts;
}

TEST(AddRule, KeepsTheFirstCaseAndTheSortedOrderWithoutNormalising) {
  ListBox list(/*sorted=*/true);
  EXPECT_EQ(AddToFileList(list, "C:\\b.txt"), AddResult::kAdded);
  EXPECT_EQ(AddToFileList(list, "C:\\A.txt"), AddResult::kAdded);
  EXPECT_EQ(AddToFileList(list, "c:\\B.TXT"), AddResult::kDuplicate);
  EXPECT_EQ(AddToFileList(list, "C:\\\\b.txt"), AddResult::kAdded);
  EXPECT_EQ(AddToFileList(list, "C:\\PROGRA~1\\b.txt"), AddResult::kAdded);
  EXPECT_EQ(AddToFileList(list, "C:\\Ä.txt"), AddResult::kAdded);
  EXPECT_EQ(AddToFileList(list, "c:\\ä.TXT"), AddResult::kDuplicate);
  EXPECT_THAT(Texts(list), ElementsAre("C:\\\\b.txt", "C:\\A.txt", "C:\\b.txt",
                                       "C:\\PROGRA~1\\b.txt", "C:\\Ä.txt"));
}

// Where the file system tells letter case apart, so does the list.
TEST(AddRule, SameEntryAsTheFileSystemTakesNames) {
  ListBox list(/*sorted=*/true);
  list.SetSameEntryKey([](std::string_view path) { return std::string(path); });
  EXPECT_EQ(AddAllToFileList(list, {"C:\\b.txt", "C:\\B.txt", "C:\\b.txt"}), (AddTally{2, 1, 0}));
  list.RemoveItem(static_cast<std::size_t>(list.FindExact("C:\\b.txt")));
  EXPECT_EQ(AddToFileList(list, "C:\\B.txt"), AddResult::kDuplicate);
  list.Clear();
  EXPECT_EQ(AddToFileList(list, "C:\\B.txt"), AddResult::kAdded);
}

TEST(AddRule, SortedWhateverTheOrderOfArrival) {
  ListBox list(/*sorted=*/true);
  const std::vector<std::string> arrivals = {"D:\\c.jpg", "D:\\B.jpg", "d:\\C.JPG", "D:\\a.jpg"};
  EXPECT_EQ(AddAllToFileList(list, arrivals), (AddTally{3, 1, 0}));
  EXPECT_THAT(Texts(list), ElementsAre("D:\\a.jpg", "D:\\B.jpg", "D:\\c.jpg"));
}

TEST(AddRule, RefusesNewPathsAtTheLimitAndTallies) {
  ListBox list(/*sorted=*/true);
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < kMaxListEntries - 1; ++i) paths.push_back("f" + std::to_string(i));
  ASSERT_EQ(AddAllToFileList(list, paths).added, kMaxListEntries - 1);

  DropData drop;
  drop.files = {"x1", "F7", "x2", "x1", "x3"};
  EXPECT_EQ(AddDroppedFiles(list, drop), (AddTally{1, 2, 2}));
  EXPECT_EQ(list.ListCount(), kMaxListEntries);
  EXPECT_EQ(list.FindExact("x1"), static_cast<int>(kMaxListEntries) - 1);
  EXPECT_EQ(AddToFileList(list, "x2"), AddResult::kListFull);
  EXPECT_EQ(AddToFileList(list, "X1"), AddResult::kDuplicate);
}

TEST(AddDroppedFiles, TakesEveryPathAsItIsAndNothingFromADropWithoutFiles) {
  ListBox list(/*sorted=*/true);
  AddToFileList(list, "C:\\a.txt");
  DropData text;
  text.hasFiles = false;
  text.files = {"C:\\b.txt"};  // whatever else rides along is not a file list
  EXPECT_EQ(AddDroppedFiles(list, text), AddTally{});
  DropData files;
  files.files = {"C:\\Photos", "C:\\A.TXT", "C:\\Photos\\x.jpg"};
  EXPECT_EQ(AddDroppedFiles(list, files), (AddTally{2, 1, 0}));
  EXPECT_THAT(Texts(list), ElementsAre("C:\\a.txt", "C:\\Photos", "C:\\Photos\\x.jpg"));
}

TEST(RemoveSelected, TakesExactlyTheSelectedRows) {
  struct Case {
    std::vector<std::size_t> selected;
    std::vector<std::string> left;
  };
  const Case cases[] = {
      {{0, 2, 3, 5}, {"b", "e"}},
      {{}, {"a", "b", "c", "d", "e", "f"}},
      {{0, 1, 2, 3, 4, 5}, {}},
  };
  for (const Case& c : cases) {
    ListBox list(/*sorted=*/true);
    for (const char* path : {"f", "e", "d", "c", "b", "a"}) list.AddItem(path);
    for (std::size_t i : c.selected) list.SetSelected(i, true);
    removeSelected(list);
    EXPECT_EQ(Texts(list), c.left);
    EXPECT_EQ(list.SelCount(), 0u);
  }
}

TEST(ListSearch, FollowsTheListMessages) {
  ListBox unsorted;
  for (const char* text : {"Alpha", "beta", "ALPHABET", "Gamma"}) unsorted.AddItem(text);
  ListBox sorted(/*sorted=*/true);
  for (const char* text : {"Gamma", "ALPHABET", "beta", "Alpha"}) sorted.AddItem(text);
  ComboBox combo;
  for (const char* text : {"Alpha", "beta", "ALPHABET", "Gamma"}) combo.AddItem(text);
  struct Case {
    const char* key;
    int start;
    bool exact;
    int unsortedList;  // the same answer for the combo box
    int sortedList;
  };
  const Case cases[] = {
      {"alphabet", -1, true, 2, 1}, {"alph", -1, true, -1, -1},  {"alph", -1, false, 0, 0},
      {"alph", 0, false, 2, 1},     {"alph", 2, false, 0, 0},    {"ALPHA", 0, true, 0, 0},
      {"gamma", 3, true, 3, 3},     {"", -1, false, 0, 0},       {"", 1, false, 2, 2},
      {"b", 99, false, 1, 2},       {"beta ", -1, true, -1, -1}, {"delta", -1, false, -1, -1},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(FindListEntry(unsorted, c.key, c.start, c.exact), c.unsortedList) << c.key << c.start;
    EXPECT_EQ(FindListEntry(combo, c.key, c.start, c.exact), c.unsortedList) << c.key << c.start;
    EXPECT_EQ(FindListEntry(sorted, c.key, c.start, c.exact), c.sortedList) << c.key << c.start;
  }
  EXPECT_EQ(findInListBox(sorted, "BETA"), 2);
  EXPECT_EQ(findInListBox(sorted, "bet"), -1);
  EXPECT_EQ(findInListBox(ListBox(), ""), -1);
}

}  // namespace
}  // namespace tessaly
