#include "files/directory_walk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "platform/memory/memory_file_system.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"
#include "text/text_ops.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;

class DirectoryWalk : public ::testing::Test {
 protected:
  DirectoryWalk() {
    files_.AddFile("C:\\Top\\b.txt");
    files_.AddFile("C:\\Top\\README");  // no extension
    files_.AddFile("C:\\Top\\a.jpg");
    files_.AddFile("C:\\Top\\.hidden.txt", attr::kHidden);
    files_.AddFile("C:\\Top\\locked.txt", attr::kReadOnly);
    files_.AddFile("C:\\Top\\pipe.txt", attr::kSystem);
    files_.AddFile("C:\\Top\\A\\c.txt");
    files_.AddFile("C:\\Top\\A\\Deep\\d.txt");
    files_.AddFile("C:\\Top\\B\\e.txt");
    files_.AddFile("C:\\Top\\.cache", attr::kDirectory | attr::kHidden);
    files_.AddFile("C:\\Top\\.cache\\f.txt");
    files_.AddFile("C:\\Top\\Sys", attr::kDirectory | attr::kSystem);
    files_.AddFile("C:\\Top\\Sys\\g.txt");
  }

  MemoryFileSystem files_;
};

TEST_F(DirectoryWalk, OwnFilesPatternByPatternThenEachSubtreeInTurn) {
  EXPECT_THAT(
      ListFiles(files_, "C:\\Top", "*.*", false),
      ElementsAre("C:\\Top\\a.jpg", "C:\\Top\\b.txt", "C:\\Top\\locked.txt", "C:\\Top\\README"));
  EXPECT_THAT(ListFiles(files_, "C:\\Top\\", "*.txt;*.jpg", true),
              ElementsAre("C:\\Top\\b.txt", "C:\\Top\\locked.txt", "C:\\Top\\a.jpg",
                          "C:\\Top\\A\\c.txt", "C:\\Top\\A\\Deep\\d.txt", "C:\\Top\\B\\e.txt"));
  // A drive's root gets no second backslash; no pattern, no file.
  files_.AddFile("C:\\boot.ini");
  EXPECT_THAT(ListFiles(files_, "C:\\", "*.ini", false), ElementsAre("C:\\boot.ini"));
  EXPECT_THAT(ListFiles(files_, "C:\\Top", "", true), ElementsAre());
}

// Where letter case counts, case twins are two files; a path that several
// patterns match still comes once.
TEST_F(DirectoryWalk, NoPathTwiceAsTheFileSystemTellsNamesApart) {
  MemoryFileSystem files(MemoryFileSystem::LetterCase::kExact);
  files.AddFile("C:\\F\\a.txt");
  files.AddFile("C:\\F\\A.txt");
  files.AddFile("C:\\F\\b.txt");
  EXPECT_THAT(ListFiles(files, "C:\\F", "*.txt;*.TXT;b.*", false),
              ElementsAre("C:\\F\\A.txt", "C:\\F\\a.txt", "C:\\F\\b.txt"));
}

// On a real disk, links may lead back up the tree or twice to one folder:
// the walk ends, and every file comes once.
TEST(DirectoryWalkOnDisk, LinksToFoldersAreFollowedOnceAndLoopsEnd) {
  namespace fs = std::filesystem;
  std::string root = (fs::temp_directory_path() / "tessaly-walk-XXXXXX").string();
  ASSERT_NE(mkdtemp(root.data()), nullptr);
  fs::create_directories(root + "/a/b");
  std::ofstream(root + "/a/b/x.txt") << "x";
  std::ofstream(root + "/a/y.txt") << "y";
  fs::create_directory_symlink("..", root + "/a/b/up");    // back to a
  fs::create_directory_symlink("a/b", root + "/again");  // a second way to b
  PosixFileSystem files;
  const auto found = ListFiles(files, ToModelPath(root), "*.txt", true);
  fs::remove_all(root);
  std::vector<std::string> names;
  for (const std::string& path : found) names.push_back(path.substr(path.find_last_of('\\') + 1));
  EXPECT_THAT(names, ::testing::UnorderedElementsAre("x.txt", "y.txt"));
}

TEST_F(DirectoryWalk, FoldersThatCannotBeReadAddNothing) {
  files_.MakeUnreadable("C:\\Top\\A");
  EXPECT_THAT(ListFiles(files_, "C:\\Top", "*.txt", true),
              ElementsAre("C:\\Top\\b.txt", "C:\\Top\\locked.txt", "C:\\Top\\B\\e.txt"));
  files_.MakeUnreadable("C:\\Top");
  EXPECT_THAT(ListFiles(files_, "C:\\Top", "*.*", true), ElementsAre());
  EXPECT_THAT(ListFiles(files_, "\\\\server\\share", "*.*", true), ElementsAre());
}

}  // namespace
}  // namespace tessaly
