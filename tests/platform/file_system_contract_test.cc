// The behaviour every file system backend shares, run against each of them,
// and the wildcard matching their searches share.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "file_system_backends.h"
#include "platform/memory/memory_file_system.h"
#include "platform/search_pattern.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

bool IsHiddenName(std::string_view path) {
  return path.substr(path.find_last_of('\\') + 1).starts_with('.');
}

class MemoryBackend : public testing::FileSystemBackend {
 public:
  explicit MemoryBackend(bool ignoreCase)
      : fs_(ignoreCase ? MemoryFileSystem::LetterCase::kIgnore
                       : MemoryFileSystem::LetterCase::kExact),
        ignoreCase_(ignoreCase) {
    fs_.AddDirectory(Root());
  }
  FileSystem& fs() override { return fs_; }
  std::string Root() const override { return "C:\\Work"; }
  bool IgnoresCase() const override { return ignoreCase_; }
  void MakeFile(std::string_view path, std::string_view contents,
                std::uint32_t attributes) override {
    if (IsHiddenName(path)) attributes |= attr::kHidden;
    fs_.AddFile(path, attributes == 0 ? attr::kArchive : attributes);
    fs_.SetContents(path, std::string(contents));
  }
  void MakeFolder(std::string_view path) override {
    fs_.AddFile(path, attr::kDirectory | (IsHiddenName(path) ? attr::kHidden : 0));
  }
  void MakeLink(std::string_view existing, std::string_view path) override {
    fs_.AddLink(existing, path);
  }
  std::optional<std::string> Read(std::string_view path) override {
    return std::ranges::count(fs_.Paths(), path) == 0 ? std::nullopt : fs_.Contents(path);
  }
  std::vector<std::string> Names(std::string_view folder) override {
    std::vector<std::string> names;
    for (const std::string& path : fs_.Paths()) {
      if (path.starts_with(folder) && path.rfind('\\') == folder.size()) {
        names.push_back(path.substr(folder.size() + 1));
      }
    }
    std::ranges::sort(names);
    return names;
  }
  void BeforeNextRename(std::function<void()> hook) override {
    fs_.BeforeNextRename(std::move(hook));
  }

 private:
  MemoryFileSystem fs_;
  bool ignoreCase_;
};

struct BackendKind {
  const char* name;
  std::function<std::unique_ptr<testing::FileSystemBackend>()> make;
};
void PrintTo(const BackendKind& kind, std::ostream* out) { *out << kind.name; }

class FileSystemContract : public ::testing::TestWithParam<BackendKind> {
 protected:
  void SetUp() override {
    backend_ = GetParam().make();
    if (!backend_) GTEST_SKIP() << "no case-folding disk can be mounted here (needs root, loop devices, ext4 casefold or vfat)";
    root_ = backend_->Root();
  }

  std::string At(std::string_view name) const { return root_ + "\\" + std::string(name); }
  FileSystem& fs() { return backend_->fs(); }
  std::vector<std::string> Found(std::string_view pattern, std::uint32_t include = 0) {
    std::vector<std::string> names;
    for (const auto& entry : fs().Search(At(pattern), include)) names.push_back(entry.name);
    return names;
  }
  // Deletes `path` as the file it is now.
  bool Delete(const std::string& path) {
    const std::optional<FileVersion> now = fs().VersionOf(path);
    return now && fs().DeleteIfUnchanged(path, *now);
  }
  void MakeFiles(std::initializer_list<const char*> names, std::uint32_t attributes = 0) {
    for (const char* name : names) backend_->MakeFile(At(name), name, attributes);
  }

  std::unique_ptr<testing::FileSystemBackend> backend_;
  std::string root_;
};

TEST_P(FileSystemContract, AttributesTellFilesFoldersSpecialFilesAndWhatIsMissing) {
  MakeFiles({"a.txt", ".profile"});
  MakeFiles({"locked.txt"}, attr::kReadOnly);
  MakeFiles({"pipe"}, attr::kSystem);
  backend_->MakeFolder(At("Sub"));
  EXPECT_EQ(fs().GetAttributes(At("a.txt")), attr::kArchive);
  for (const std::string& folder : {At("Sub"), At("Sub\\"), root_}) {
    EXPECT_EQ(fs().GetAttributes(folder), attr::kDirectory) << folder;
  }
  // The run's guard name puts a word before a whole path.
  for (const std::string& path :
       {At("b.txt"), At("Sub\\a.txt"), At("No\\a.txt"), "temp-" + At("a.txt"), std::string()}) {
    EXPECT_EQ(fs().GetAttributes(path), std::nullopt) << path;
  }
  // Whether a hidden file also carries the archive bit is the platform's
  // choice.
  EXPECT_EQ(fs().GetAttributes(At(".profile")).value_or(0) & ~attr::kArchive, attr::kHidden);
  EXPECT_EQ(fs().GetAttributes(At("locked.txt")).value_or(0) & attr::kReadOnly, attr::kReadOnly);
  EXPECT_EQ(fs().GetAttributes(At("pipe")).value_or(0) & attr::kSystem, attr::kSystem);
}

// Where letter case counts, names that differ only in it are separate
// files, and nothing done to one touches another.
TEST_P(FileSystemContract, CaseTwinsAreSeparateFilesWhereCaseCounts) {
  if (backend_->IgnoresCase()) GTEST_SKIP() << "case twins cannot exist here";
  MakeFiles({"Foo", "foo", "FOO"});
  EXPECT_FALSE(fs().GetAttributes(At("fOO")));
  EXPECT_TRUE(Delete(At("foo")));
  EXPECT_FALSE(fs().Rename(At("Foo"), At("FOO")));
  ASSERT_TRUE(fs().Rename(At("FOO"), At("bar")));
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Foo", "bar"));
  EXPECT_EQ(backend_->Read(At("Foo")), "Foo");
  EXPECT_EQ(backend_->Read(At("bar")), "FOO");
}

// A name may end in a period or a blank, beside the same name without it
// (Windows reaches such names only through their exact form).
TEST_P(FileSystemContract, NamesEndingInAPeriodOrABlankAreTheirOwn) {
  MakeFiles({"TRAIL", "TRAIL.", "blank", "blank "});
  ASSERT_TRUE(fs().Rename(At("TRAIL."), At("dot.txt")));
  ASSERT_TRUE(fs().Rename(At("blank "), At("space.txt")));
  EXPECT_THAT(backend_->Names(root_), ElementsAre("TRAIL", "blank", "dot.txt", "space.txt"));
  EXPECT_EQ(backend_->Read(At("dot.txt")), "TRAIL.");
  EXPECT_EQ(backend_->Read(At("space.txt")), "blank ");
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
  // Where the disk folds case, the path as asked reaches the file already.
  EXPECT_EQ(fs().PathOnDisk(At("MUSIC\\Live set\\01.mp3")),
            At(backend_->IgnoresCase() ? "MUSIC\\Live set\\01.mp3" : "Music\\Live Set\\01.mp3"));
  if (backend_->IgnoresCase()) return;
  backend_->MakeFolder(At("MUSIC"));  // now two folders match
  fs().ForgetAnswers();
  EXPECT_FALSE(fs().GetAttributes(At("music\\Live Set\\01.mp3")));
  EXPECT_FALSE(fs().Rename(At("Music\\Live Set\\01.mp3"), At("music\\02.mp3")));
}

TEST_P(FileSystemContract, RenameMovesWithinAndBetweenFoldersAndOntoItself) {
  backend_->MakeFolder(At("Sub"));
  backend_->MakeFile(At("a.txt"), "alpha");
  EXPECT_FALSE(fs().GetAttributes(At("b.txt")));  // an answer a backend may keep
  EXPECT_TRUE(fs().Rename(At("a.txt"), At("a.txt")));
  ASSERT_TRUE(fs().Rename(At("a.txt"), At("A.TXT")));  // a change of letter case alone
  EXPECT_THAT(backend_->Names(root_), ElementsAre("A.TXT", "Sub"));
  ASSERT_TRUE(fs().Rename(At("A.TXT"), At("b.txt")));
  EXPECT_TRUE(fs().GetAttributes(At("b.txt")));  // its own changes are seen at once
  EXPECT_FALSE(fs().GetAttributes(At("A.TXT")));
  ASSERT_TRUE(fs().Rename(At("b.txt"), At("Sub\\c.txt")));
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Sub"));
  EXPECT_EQ(backend_->Read(At("Sub\\c.txt")), "alpha");
}

// Also: another program puts a file under the target after the caller has
// looked and before the move; the move must fail and leave both files whole.
TEST_P(FileSystemContract, RenameFailsWithoutHarmWhenEitherPathIsUnusableOrTheTargetTaken) {
  MakeFiles({"mine.txt", "theirs.txt"});
  backend_->MakeFolder(At("Sub"));
  std::vector<std::pair<std::string, std::string>> cases = {
      {At("mine.txt"), At("theirs.txt")},      // never replaces a file
      {At("mine.txt"), At("Sub")},             // nor a folder
      {At("missing.txt"), At("b.txt")},        // no source
      {At("Sub"), At("Sub2")},                 // a folder is not a file
      {At("mine.txt"), At("Nowhere\\b.txt")},  // no folder is ever created
      {At("mine.txt"), ""},                    // empty target
      {At("mine.txt"), At("Sub\\")},           // no name
      {At("mine.txt\\"), At("b.txt")},         // no name
  };
  if (backend_->IgnoresCase()) cases.emplace_back(At("mine.txt"), At("THEIRS.TXT"));
  for (const auto& [source, target] : cases) {
    EXPECT_FALSE(fs().Rename(source, target)) << source << " -> " << target;
  }
  ASSERT_FALSE(fs().GetAttributes(At("new.txt")));
  backend_->BeforeNextRename([&] { backend_->MakeFile(At("new.txt"), "new.txt"); });
  EXPECT_FALSE(fs().Rename(At("mine.txt"), At("new.txt")));
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Sub", "mine.txt", "new.txt", "theirs.txt"));
  for (const char* name : {"mine.txt", "new.txt", "theirs.txt"}) {
    EXPECT_EQ(backend_->Read(At(name)), name);
  }
}

// A rename that takes no name an entry holds says what looks just before
// and after it would say; whatever is asked after it is the disk's answer
// again: a file another program puts under the old name, the moved file's
// version as it now is.
TEST_P(FileSystemContract, ARenameIfFreeAnswersForTheDiskAndLeavesNothingStale) {
  MakeFiles({"a.txt", "taken.txt"});
  backend_->MakeFolder(At("Sub"));
  const std::optional<FileVersion> before = fs().VersionOf(At("a.txt"));
  ASSERT_TRUE(before);
  std::vector<std::string> taken = {At("taken.txt"), At("Sub"), At("a.txt")};
  if (backend_->IgnoresCase()) taken.push_back(At("A.TXT"));  // the file itself
  for (const std::string& target : taken) {
    EXPECT_EQ(fs().RenameIfFree(At("a.txt"), target), RenameAnswer::kTaken) << target;
  }
  EXPECT_EQ(fs().RenameIfFree(At("missing.txt"), At("b.txt")), RenameAnswer::kFailed);
  EXPECT_EQ(fs().RenameIfFree(At("a.txt"), At("Nowhere\\b.txt")), RenameAnswer::kFailed);
  backend_->BeforeNextRename([&] { backend_->MakeFile(At("late.txt"), "late.txt"); });
  EXPECT_EQ(fs().RenameIfFree(At("a.txt"), At("late.txt")), RenameAnswer::kTaken);
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Sub", "a.txt", "late.txt", "taken.txt"));
  EXPECT_EQ(backend_->Read(At("late.txt")), "late.txt");
  EXPECT_FALSE(fs().GetAttributes(At("b.txt")));  // an answer a backend may keep
  ASSERT_EQ(fs().RenameIfFree(At("a.txt"), At("b.txt")), RenameAnswer::kRenamed);
  EXPECT_EQ(backend_->Read(At("b.txt")), "a.txt");
  EXPECT_TRUE(fs().GetAttributes(At("b.txt")));
  backend_->MakeFile(At("a.txt"), "theirs");
  EXPECT_NE(fs().VersionOf(At("a.txt")).value_or(*before).identity, before->identity);
  EXPECT_EQ(fs().IdentityOf(At("b.txt")), before->identity);
  EXPECT_TRUE(Delete(At("b.txt")));  // the version it deletes by is the one on the disk
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Sub", "a.txt", "late.txt", "taken.txt"));
}

TEST_P(FileSystemContract, DeleteRemovesWritableFilesOnlyButReadOnlyFilesMove) {
  backend_->MakeFile(At("ro.txt"), "keep", attr::kReadOnly);
  EXPECT_FALSE(Delete(At("ro.txt")));
  ASSERT_TRUE(fs().Rename(At("ro.txt"), At("moved.txt")));
  EXPECT_EQ(backend_->Read(At("moved.txt")), "keep");
  backend_->MakeFile(At("a.txt"));
  backend_->MakeFolder(At("Sub"));
  EXPECT_TRUE(Delete(At("a.txt")));
  EXPECT_FALSE(fs().GetAttributes(At("a.txt")));  // seen gone at once
  for (const std::string& path : {At("a.txt"), At("Sub"), std::string()}) {
    EXPECT_FALSE(Delete(path)) << path;
  }
  EXPECT_THAT(backend_->Names(root_), ElementsAre("Sub", "moved.txt"));
}

// A delete names the file it means, as it was when the caller looked:
// another program's file put under that name, or the file written to since,
// stays.
TEST_P(FileSystemContract, DeleteSparesAFileThatIsNoLongerTheOneSeen) {
  MakeFiles({"moved.txt", "written.txt", "untouched.txt"});
  const auto moved = fs().VersionOf(At("moved.txt"));
  const auto written = fs().VersionOf(At("written.txt"));
  const auto untouched = fs().VersionOf(At("untouched.txt"));
  ASSERT_TRUE(moved && written && untouched);
  ASSERT_TRUE(fs().Rename(At("moved.txt"), At("away.txt")));
  backend_->MakeFile(At("moved.txt"), "theirs");
  backend_->MakeFile(At("written.txt"), "written again");
  EXPECT_FALSE(fs().DeleteIfUnchanged(At("moved.txt"), *moved));
  EXPECT_FALSE(fs().DeleteIfUnchanged(At("written.txt"), *written));
  EXPECT_EQ(backend_->Read(At("moved.txt")), "theirs");
  EXPECT_EQ(backend_->Read(At("written.txt")), "written again");
  EXPECT_TRUE(fs().DeleteIfUnchanged(At("untouched.txt"), *untouched));
}

// One entry under two spellings is one only where the disk folds them;
// two hard links to one file are two entries.
TEST_P(FileSystemContract, OneEntryTellsSpellingsFromHardLinks) {
  MakeFiles({"a.txt", "b.txt"});
  backend_->MakeLink(At("a.txt"), At("link.txt"));
  EXPECT_TRUE(fs().OneEntry(At("a.txt"), At("a.txt")));
  EXPECT_EQ(fs().OneEntry(At("a.txt"), At("A.TXT")), backend_->IgnoresCase());
  EXPECT_FALSE(fs().OneEntry(At("a.txt"), At("b.txt")));
  EXPECT_FALSE(fs().OneEntry(At("a.txt"), At("missing.txt")));
  ASSERT_EQ(fs().IdentityOf(At("a.txt")), fs().IdentityOf(At("link.txt")));
  EXPECT_FALSE(fs().OneEntry(At("a.txt"), At("link.txt")));
  EXPECT_FALSE(fs().OneEntry(At("LINK.txt"), At("a.txt")));
}

// Also: a folder is searched in other letter case where the backend
// ignores it, and each entry carries its attributes.
TEST_P(FileSystemContract, SearchMatchesWildcardsIgnoringCaseAndLeavesOutWhatIsNotAskedFor) {
  MakeFiles({"a.txt", "B.TXT", "readme", ".hidden"});
  MakeFiles({"ro.txt"}, attr::kReadOnly);
  MakeFiles({"pipe"}, attr::kSystem);
  backend_->MakeFolder(At("Sub"));
  backend_->MakeFolder(At(".git"));
  backend_->MakeFile(At("Sub\\ro.txt"), "", attr::kReadOnly);
  const std::vector<std::string> plain = {"a.txt", "B.TXT", "readme", "ro.txt"};
  std::vector<std::string> withFolder = plain, all = plain;
  withFolder.push_back("Sub");
  all.insert(all.end(), {"Sub", ".hidden", "pipe", ".git"});
  const std::tuple<std::string, std::uint32_t, std::vector<std::string>> cases[] = {
      {"*.*", 0, plain},
      {"*", attr::kDirectory, withFolder},
      {"*.*", attr::kHidden | attr::kSystem | attr::kDirectory, all},
      {"?.TXT", 0, {"a.txt", "B.TXT"}}, {"*.", 0, {"readme"}}, {"README.*", 0, {"readme"}},
      {"*.doc", 0, {}}, {"Nowhere\\*.*", 0, {}}, {"a.txt\\*.*", 0, {}},
      {backend_->IgnoresCase() ? "SUB\\*.*" : "Sub\\*.*", 0, {"ro.txt"}},
  };
  for (const auto& [pattern, include, expected] : cases) {
    EXPECT_THAT(Found(pattern, include), UnorderedElementsAreArray(expected)) << pattern;
  }
  for (const DirectoryEntry& entry : fs().Search(At("*.txt"), 0)) {
    EXPECT_EQ(entry.attributes & attr::kReadOnly, entry.name == "ro.txt" ? attr::kReadOnly : 0u);
  }
}

const BackendKind kBackends[] = {
    {"MemoryIgnoringCase", [] { return std::make_unique<MemoryBackend>(true); }},
    {"MemoryExactCase", [] { return std::make_unique<MemoryBackend>(false); }},
#ifdef _WIN32
    {"Win32", [] { return testing::MakeWin32Backend(); }},
#else
    {"Posix", [] { return testing::MakePosixBackend(); }},
    {"PosixCaseFolding", [] { return testing::MakeCaseFoldingPosixBackend(); }},
#endif
};

INSTANTIATE_TEST_SUITE_P(Backends, FileSystemContract, ::testing::ValuesIn(kBackends),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(SearchPatternTest, MatchesLikeTheDesktopPlatform) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"README", "*.*", true},  // no period, still matched
      {".profile", "*.*", true},          {"README", "*.", true},
      {"a.txt", "*.", false},             {"notes", "notes.*", true},
      {"ÄRGER.TXT", "ärger.*", true},     // beyond ASCII
      {".txt", "?.txt", false},           // "?" is exactly one character
      {"abcbd", "a*b*d", true},           // a first try that fails must be retried
      {"a*b", "a*b", true},               // a star in a name is just a character
      {"x.tar.gz", "*.gz", true},         {"", "*", true},
      {"a", "", false},                   {"notesx", "notes.*", false},
      {"caf\xff.txt", "CAF\xff.*", true},  // an invalid byte matches itself
  };
  for (const auto& [name, pattern, matches] : cases) {
    EXPECT_EQ(search_pattern::Matches(name, pattern), matches) << name << " / " << pattern;
  }
  // A search pattern's folder and name pattern.
  const std::tuple<const char*, const char*, const char*> splits[] = {
      {"C:\\Photos\\*.jpg", "C:\\Photos", "*.jpg"}, {"C:\\*.*", "C:\\", "*.*"},
      {"\\*.*", "\\", "*.*"}, {"C:\\Photos\\", "C:\\Photos", ""},
  };
  for (const auto& [pattern, folder, name] : splits) {
    const search_pattern::Parts parts = search_pattern::Split(pattern);
    EXPECT_EQ(parts.folder + "|" + parts.name, std::string(folder) + "|" + name) << pattern;
  }
}

}  // namespace
}  // namespace tessaly
