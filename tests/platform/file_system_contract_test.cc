// The behaviour every file system backend shares, run against each of them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "file_system_backends.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;
using testing::BackendKind;

class FileSystemContract : public ::testing::TestWithParam<BackendKind> {
 protected:
  void SetUp() override {
    backend_ = GetParam().make();
    if (!backend_) {
      GTEST_SKIP() << "no case-folding file system can be mounted here (needs root, a loop "
                      "device, and a kernel with ext4 casefold or vfat)";
    }
    root_ = backend_->Root();
  }

  std::string At(std::string_view name) const { return root_ + "\\" + std::string(name); }
  FileSystem& fs() { return backend_->fs(); }
  bool IsFile(std::string_view name) {
    const auto bits = fs().GetAttributes(At(name));
    return bits && (*bits & attr::kDirectory) == 0;
  }
  std::vector<std::string> Found(std::string_view pattern, std::uint32_t include = 0) {
    std::vector<std::string> names;
    for (const DirectoryEntry& entry : fs().Search(At(pattern), include)) {
      names.push_back(entry.name);
    }
    return names;
  }

  std::unique_ptr<testing::FileSystemBackend> backend_;
  std::string root_;
};

TEST_P(FileSystemContract, AttributesTellFilesFoldersSpecialFilesAndWhatIsMissing) {
  backend_->MakeFile(At("a.txt"), "x");
  backend_->MakeFolder(At("Sub"));
  EXPECT_EQ(fs().GetAttributes(At("a.txt")), attr::kArchive);
  EXPECT_EQ(fs().GetAttributes(At("Sub")), attr::kDirectory);
  EXPECT_EQ(fs().GetAttributes(At("Sub\\")), attr::kDirectory);
  EXPECT_EQ(fs().GetAttributes(root_), attr::kDirectory);
  for (const std::string& path :
       {At("b.txt"), At("Sub\\a.txt"), At("Nowhere\\a.txt"), std::string()}) {
    EXPECT_EQ(fs().GetAttributes(path), std::nullopt) << path;
  }
  backend_->MakeFile(At(".profile"));
  backend_->MakeFile(At("locked.txt"), "", attr::kReadOnly);
  backend_->MakeFile(At("pipe"), "", attr::kSystem);
  // Whether a hidden file also carries the archive bit is the platform's
  // choice.
  EXPECT_EQ(fs().GetAttributes(At(".profile")).value_or(0) & ~attr::kArchive, attr::kHidden);
  EXPECT_EQ(fs().GetAttributes(At("locked.txt")).value_or(0) & attr::kReadOnly, attr::kReadOnly);
  EXPECT_EQ(fs().GetAttributes(At("pipe")).value_or(0) & attr::kSystem, attr::kSystem);
}

TEST_P(FileSystemContract, LetterCaseFollowsTheBackend) {
  backend_->MakeFolder(At("Photos"));
  backend_->MakeFile(At("Photos\\Beach.JPG"));
  const bool found = fs().GetAttributes(At("PHOTOS\\beach.jpg")).has_value();
  EXPECT_EQ(found, backend_->IgnoresCase());
}

// Where letter case counts, names that differ only in it are separate
// files, and nothing done to one touches another.
TEST_P(FileSystemContract, CaseTwinsAreSeparateFilesWhereCaseCounts) {
  if (backend_->IgnoresCase()) GTEST_SKIP() << "case twins cannot exist here";
  for (const char* name : {"Foo", "foo", "FOO"}) backend_->MakeFile(At(name), name);
  EXPECT_FALSE(fs().GetAttributes(At("fOO")));
  EXPECT_TRUE(fs().Delete(At("foo")));
  EXPECT_FALSE(fs().Rename(At("Foo"), At("FOO")));
  ASSERT_TRUE(fs().Rename(At("FOO"), At("bar")));
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Foo", "bar"));
  EXPECT_EQ(backend_->Read(At("Foo")), "Foo");
  EXPECT_EQ(backend_->Read(At("bar")), "FOO");
}

// A conversion may change a folder's letter case, and no folder is ever
// made, so a folder is the one folder that matches ignoring case; a file
// name is taken as the backend takes names.
TEST_P(FileSystemContract, AFolderIsFoundInOtherCaseWhenOnlyOneMatches) {
  backend_->MakeFolder(At("Music"));
  backend_->MakeFolder(At("Music\\Live Set"));
  backend_->MakeFile(At("Music\\Live Set\\Track.MP3"), "x");
  EXPECT_EQ(fs().GetAttributes(At("MUSIC\\live set\\Track.MP3")), attr::kArchive);
  EXPECT_EQ(fs().GetAttributes(At("MUSIC\\live set\\track.mp3")).has_value(),
            backend_->IgnoresCase());
  ASSERT_TRUE(fs().Rename(At("music\\LIVE SET\\Track.MP3"), At("MUSIC\\Live set\\01.mp3")));
  EXPECT_THAT(backend_->Names(At("Music\\Live Set")), ElementsAre("01.mp3"));
  if (backend_->IgnoresCase()) return;
  backend_->MakeFolder(At("MUSIC"));  // now two folders match
  fs().ForgetAnswers();
  EXPECT_FALSE(fs().GetAttributes(At("music\\Live Set\\01.mp3")));
  EXPECT_FALSE(fs().Rename(At("Music\\Live Set\\01.mp3"), At("music\\02.mp3")));
}

TEST_P(FileSystemContract, RenameMovesWithinAndBetweenFolders) {
  backend_->MakeFolder(At("Sub"));
  backend_->MakeFile(At("a.txt"), "alpha");
  ASSERT_TRUE(fs().Rename(At("a.txt"), At("b.txt")));
  ASSERT_TRUE(fs().Rename(At("b.txt"), At("Sub\\c.txt")));
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Sub"));
  EXPECT_EQ(backend_->Read(At("Sub\\c.txt")), "alpha");
}

TEST_P(FileSystemContract, RenameNeverReplacesWhatStandsUnderTheTarget) {
  backend_->MakeFile(At("mine.txt"), "mine");
  backend_->MakeFile(At("theirs.txt"), "theirs");
  backend_->MakeFolder(At("Folder"));
  std::vector<std::string> targets = {At("theirs.txt"), At("Folder")};
  if (backend_->IgnoresCase()) targets.push_back(At("THEIRS.TXT"));
  for (const std::string& target : targets) {
    EXPECT_FALSE(fs().Rename(At("mine.txt"), target)) << target;
  }
  EXPECT_EQ(backend_->Read(At("mine.txt")), "mine");
  EXPECT_EQ(backend_->Read(At("theirs.txt")), "theirs");
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Folder", "mine.txt", "theirs.txt"));
}

TEST_P(FileSystemContract, RenameFailsWithoutHarmWhenEitherPathIsUnusable) {
  backend_->MakeFile(At("a.txt"), "alpha");
  backend_->MakeFolder(At("Sub"));
  const std::vector<std::pair<std::string, std::string>> cases = {
      {At("missing.txt"), At("b.txt")},      // no source
      {At("Sub"), At("Sub2")},               // a folder is not a file
      {At("a.txt"), At("Nowhere\\b.txt")},   // no folder is ever created
      {At("a.txt"), ""},                     // empty target
      {At("a.txt"), At("Sub\\")},            // no name
      {At("a.txt\\"), At("b.txt")},          // no name
  };
  for (const auto& [source, target] : cases) {
    EXPECT_FALSE(fs().Rename(source, target)) << source << " -> " << target;
  }
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Sub", "a.txt"));
  EXPECT_EQ(backend_->Read(At("a.txt")), "alpha");
}

TEST_P(FileSystemContract, RenameOntoItselfChangesNothingAndMayChangeLetterCaseAlone) {
  backend_->MakeFile(At("a.txt"), "alpha");
  EXPECT_TRUE(fs().Rename(At("a.txt"), At("a.txt")));
  EXPECT_EQ(backend_->Read(At("a.txt")), "alpha");
  ASSERT_TRUE(fs().Rename(At("a.txt"), At("A.TXT")));
  EXPECT_THAT(backend_->Names(root_), ElementsAre("A.TXT"));
  EXPECT_EQ(backend_->Read(At("A.TXT")), "alpha");
}

TEST_P(FileSystemContract, DeleteRemovesWritableFilesOnlyButReadOnlyFilesMove) {
  backend_->MakeFile(At("ro.txt"), "keep", attr::kReadOnly);
  EXPECT_FALSE(fs().Delete(At("ro.txt")));
  ASSERT_TRUE(fs().Rename(At("ro.txt"), At("moved.txt")));
  EXPECT_EQ(backend_->Read(At("moved.txt")), "keep");
  backend_->MakeFile(At("a.txt"));
  backend_->MakeFolder(At("Sub"));
  EXPECT_TRUE(fs().Delete(At("a.txt")));
  EXPECT_FALSE(fs().Delete(At("a.txt")));
  EXPECT_FALSE(fs().Delete(At("Sub")));
  EXPECT_FALSE(fs().Delete(""));
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Sub", "moved.txt"));
}

TEST_P(FileSystemContract, SearchMatchesWildcardsIgnoringCase) {
  for (const char* name : {"a.txt", "B.TXT", "readme", "ab.jpg", "photo.jpeg", "x.tar.gz"}) {
    backend_->MakeFile(At(name));
  }
  const std::vector<std::pair<const char*, std::vector<std::string>>> cases = {
      {"*.*", {"a.txt", "B.TXT", "readme", "ab.jpg", "photo.jpeg", "x.tar.gz"}},
      {"*", {"a.txt", "B.TXT", "readme", "ab.jpg", "photo.jpeg", "x.tar.gz"}},
      {"*.txt", {"a.txt", "B.TXT"}},
      {"?.TXT", {"a.txt", "B.TXT"}},
      {"*.jp?", {"ab.jpg"}},
      {"*.gz", {"x.tar.gz"}},
      {"*.", {"readme"}},
      {"README.*", {"readme"}},
      {"b.txt", {"B.TXT"}},
      {"*.doc", {}},
  };
  for (const auto& [pattern, expected] : cases) {
    EXPECT_THAT(Found(pattern), UnorderedElementsAreArray(expected)) << pattern;
  }
}

TEST_P(FileSystemContract, SearchLeavesOutHiddenSystemAndFoldersUnlessAsked) {
  backend_->MakeFile(At("plain.txt"));
  backend_->MakeFile(At("ro.txt"), "", attr::kReadOnly);
  backend_->MakeFile(At(".hidden"));
  backend_->MakeFile(At("pipe"), "", attr::kSystem);
  backend_->MakeFolder(At("Sub"));
  backend_->MakeFolder(At(".git"));
  EXPECT_THAT(Found("*.*"), UnorderedElementsAreArray({"plain.txt", "ro.txt"}));
  EXPECT_THAT(Found("*.*", attr::kDirectory),
              UnorderedElementsAreArray({"plain.txt", "ro.txt", "Sub"}));
  EXPECT_THAT(Found("*.*", attr::kHidden | attr::kSystem | attr::kDirectory),
              UnorderedElementsAreArray({"plain.txt", "ro.txt", ".hidden", "pipe", "Sub", ".git"}));
}

TEST_P(FileSystemContract, SearchReportsAttributesAndFindsOnlyFoldersIgnoringCase) {
  backend_->MakeFolder(At("Sub"));
  backend_->MakeFile(At("Sub\\ro.txt"), "", attr::kReadOnly);
  const std::string folder = backend_->IgnoresCase() ? "SUB" : "Sub";
  const auto entries = fs().Search(At(folder + "\\*.*"), 0);
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].name, "ro.txt");
  EXPECT_NE(entries[0].attributes & attr::kReadOnly, 0u);
  backend_->MakeFile(At("a.txt"));
  EXPECT_THAT(Found("Nowhere\\*.*"), IsEmpty());
  EXPECT_THAT(Found("a.txt\\*.*"), IsEmpty());
}

// Another program puts a file under the target after the caller has looked
// and before the move: the move must fail and leave both files whole.
TEST_P(FileSystemContract, TargetAppearingBeforeTheMoveIsNeverOverwritten) {
  backend_->MakeFile(At("mine.txt"), "mine");
  ASSERT_FALSE(fs().GetAttributes(At("new.txt")));
  backend_->BeforeNextRename([&] { backend_->MakeFile(At("new.txt"), "theirs"); });
  EXPECT_FALSE(fs().Rename(At("mine.txt"), At("new.txt")));
  EXPECT_EQ(backend_->Read(At("new.txt")), "theirs");
  EXPECT_EQ(backend_->Read(At("mine.txt")), "mine");
}

const BackendKind kBackends[] = {
    {"MemoryIgnoringCase", [] { return testing::MakeMemoryBackend(true); }},
    {"MemoryExactCase", [] { return testing::MakeMemoryBackend(false); }},
#ifdef _WIN32
    {"Win32", [] { return testing::MakeWin32Backend(); }},
#else
    {"Posix", [] { return testing::MakePosixBackend(); }},
    {"PosixCaseFolding", [] { return testing::MakeCaseFoldingPosixBackend(); }},
#endif
};

INSTANTIATE_TEST_SUITE_P(Backends, FileSystemContract, ::testing::ValuesIn(kBackends),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessaly
