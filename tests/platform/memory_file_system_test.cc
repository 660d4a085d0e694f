// The memory file system's own switches and records, which tests of the
// rest of the program rely on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Record = MemoryFileSystem::RenameRecord;

class MemoryFileSystemTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fs_.AddFile("C:\\Work\\a.txt");
    fs_.AddFile("C:\\Work\\b.txt");
  }
  MemoryFileSystem fs_;
};

TEST_F(MemoryFileSystemTest, AddingAFileAddsTheFoldersAboveIt) {
  fs_.AddFile("D:\\Deep\\Er\\x.txt");
  EXPECT_EQ(fs_.GetAttributes("D:\\Deep"), attr::kDirectory);
  EXPECT_EQ(fs_.GetAttributes("D:\\Deep\\Er\\"), attr::kDirectory);
  EXPECT_EQ(fs_.GetAttributes("D:\\"), attr::kDirectory);
}

TEST_F(MemoryFileSystemTest, RecordsWhatSucceededInOrder) {
  EXPECT_TRUE(fs_.Rename("C:\\Work\\a.txt", "C:\\Work\\c.txt"));
  EXPECT_FALSE(fs_.Rename("C:\\Work\\c.txt", "C:\\Work\\B.TXT"));
  EXPECT_TRUE(fs_.Delete("C:\\Work\\b.txt"));
  EXPECT_FALSE(fs_.Delete("C:\\Work\\b.txt"));
  EXPECT_THAT(fs_.renames(), ElementsAre(Record{"C:\\Work\\a.txt", "C:\\Work\\c.txt"}));
  EXPECT_THAT(fs_.deletes(), ElementsAre("C:\\Work\\b.txt"));
}

TEST_F(MemoryFileSystemTest, FailNextSwitchesAreUsedUpByOneCall) {
  fs_.FailNextRename();
  fs_.FailNextDelete();
  EXPECT_FALSE(fs_.Rename("C:\\Work\\a.txt", "C:\\Work\\c.txt"));
  EXPECT_FALSE(fs_.Delete("C:\\Work\\b.txt"));
  EXPECT_TRUE(fs_.GetAttributes("C:\\Work\\a.txt"));
  EXPECT_TRUE(fs_.GetAttributes("C:\\Work\\b.txt"));
  EXPECT_TRUE(fs_.Rename("C:\\Work\\a.txt", "C:\\Work\\c.txt"));
  EXPECT_TRUE(fs_.Delete("C:\\Work\\b.txt"));
}

TEST_F(MemoryFileSystemTest, ALockedFileCanNeitherMoveNorGo) {
  fs_.Lock("C:\\work\\A.TXT");
  EXPECT_FALSE(fs_.Rename("C:\\Work\\a.txt", "C:\\Work\\c.txt"));
  EXPECT_FALSE(fs_.Delete("C:\\Work\\a.txt"));
  EXPECT_THAT(fs_.renames(), IsEmpty());
  EXPECT_THAT(fs_.deletes(), IsEmpty());
}

TEST_F(MemoryFileSystemTest, ReadOnlyIsAnAttributeThatStopsDeletion) {
  fs_.MakeReadOnly("C:\\Work\\a.txt");
  EXPECT_EQ(fs_.GetAttributes("C:\\Work\\a.txt"), attr::kArchive | attr::kReadOnly);
  EXPECT_FALSE(fs_.Delete("C:\\Work\\a.txt"));
}

TEST_F(MemoryFileSystemTest, AnUnreadableFolderGivesNothingToASearch) {
  fs_.MakeUnreadable("C:\\WORK");
  EXPECT_THAT(fs_.Search("C:\\Work\\*.*", 0), IsEmpty());
  EXPECT_TRUE(fs_.GetAttributes("C:\\Work\\a.txt"));
}

TEST_F(MemoryFileSystemTest, HookRunsOnceBeforeTheNextRenameLooks) {
  int runs = 0;
  fs_.BeforeNextRename([&] {
    ++runs;
    fs_.AddFile("C:\\Work\\c.txt");
  });
  EXPECT_FALSE(fs_.Rename("C:\\Work\\a.txt", "C:\\Work\\c.txt"));
  EXPECT_TRUE(fs_.Rename("C:\\Work\\a.txt", "C:\\Work\\d.txt"));
  EXPECT_EQ(runs, 1);
}

TEST_F(MemoryFileSystemTest, RootSearchGivesOneBackslashBehindTheDrive) {
  fs_.AddFile("C:\\boot.ini");
  const auto entries = fs_.Search("C:\\*.*", attr::kDirectory);
  std::vector<std::string> names;
  for (const auto& entry : entries) names.push_back(entry.name);
  EXPECT_THAT(names, ElementsAre("boot.ini", "Work"));
}

}  // namespace
}  // namespace tessaly
