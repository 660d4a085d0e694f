// The POSIX file system: its backend for the contract suite, in a temporary
// folder, and what it does beyond the contract: its kept answers, native
// names, links, and moves between file systems.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>

#include "file_system_backends.h"
#include "platform/posix/cross_device_move.h"
#include "platform/posix/kept_answers.h"
#include "platform/posix/native_path.h"
#include "platform/posix/no_replace_rename.h"
#include "platform/posix/posix_file_system.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TempFolder;

// A whole native file; nothing if it cannot be opened.
std::optional<std::string> ReadNative(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void WriteNative(const std::string& path, std::string_view contents) {
  std::ofstream(path, std::ios::binary) << contents;
}

// The names a native folder holds, sorted.
std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

// A loop-mounted disk that folds letter case itself (ext4 with a casefold
// folder, else vfat), made once per process; no folder where this machine
// cannot make one (not root, no loop devices, a kernel without either).
class CaseFoldingMount {
 public:
  CaseFoldingMount() {
    char pattern[] = "/tmp/tessaly-fold-XXXXXX";
    if (mkdtemp(pattern) == nullptr) return;
    base_ = pattern;
    const std::string image = base_ + "/disk.img", mount = base_ + "/mnt", quiet = " >/dev/null 2>&1";
    std::filesystem::create_directories(mount);
    if (Run("truncate -s 32M " + image + " && mkfs.ext4 -q -O casefold " + image + quiet) &&
        Run("mount -o loop " + image + " " + mount + quiet)) {
      mounted_ = true;
      const std::string folded = mount + "/folded";
      if (Run("mkdir " + folded + " && chattr +F " + folded + quiet)) folder_ = folded;
    } else if (Run("rm -f " + image + " && truncate -s 32M " + image + " && mkfs.vfat " + image + quiet) &&
               Run("mount -o loop " + image + " " + mount + quiet)) {
      mounted_ = true;
      folder_ = mount;
    }
  }
  ~CaseFoldingMount() {
    if (mounted_) Run("umount " + base_ + "/mnt >/dev/null 2>&1");
    std::error_code ignored;
    if (!base_.empty()) std::filesystem::remove_all(base_, ignored);
  }
  const std::string& folder() const { return folder_; }

 private:
  static bool Run(const std::string& command) { return std::system(command.c_str()) == 0; }
  std::string base_, folder_;
  bool mounted_ = false;
};

class PosixBackend : public testing::FileSystemBackend {
 public:
  explicit PosixBackend(const std::string& parent = "", bool ignoresCase = false)
      : folder_(parent), ignoresCase_(ignoresCase) {}
  FileSystem& fs() override { return fs_; }
  std::string Root() const override { return ToModelPath(folder_.path()); }
  bool IgnoresCase() const override { return ignoresCase_; }
  void MakeFile(std::string_view path, std::string_view contents,
                std::uint32_t attributes) override {
    const std::string native = ToNativePath(path);
    // A FIFO stands for a file that is neither regular nor a folder.
    if ((attributes & attr::kSystem) != 0) {
      mkfifo(native.c_str(), 0644);
      return;
    }
    WriteNative(native, contents);
    if ((attributes & attr::kReadOnly) != 0) chmod(native.c_str(), 0444);
  }
  void MakeFolder(std::string_view path) override {
    std::filesystem::create_directory(ToNativePath(path));
  }
  void MakeLink(std::string_view existing, std::string_view path) override {
    link(ToNativePath(existing).c_str(), ToNativePath(path).c_str());
  }
  std::optional<std::string> Read(std::string_view path) override {
    const std::string native = ToNativePath(path);
    const auto names = NamesIn(native.substr(0, native.find_last_of('/')));
    if (!std::ranges::binary_search(names, native.substr(native.find_last_of('/') + 1))) {
      return std::nullopt;
    }
    return ReadNative(native);
  }
  std::vector<std::string> Names(std::string_view folder) override {
    std::vector<std::string> names = NamesIn(ToNativePath(folder));
    for (std::string& name : names) name = ToModelPath(name);
    return names;
  }
  void BeforeNextRename(std::function<void()> hook) override {
    fs_.SetBeforeNextRenameForTesting(std::move(hook));
  }

 private:
  TempFolder folder_;
  bool ignoresCase_;
  PosixFileSystem fs_;
};

}  // namespace

std::unique_ptr<testing::FileSystemBackend> testing::MakePosixBackend() {
  return std::make_unique<PosixBackend>();
}

std::unique_ptr<testing::FileSystemBackend> testing::MakeCaseFoldingPosixBackend() {
  static const CaseFoldingMount mount;
  if (mount.folder().empty()) return nullptr;
  return std::make_unique<PosixBackend>(mount.folder(), true);
}

namespace {

class PosixFileSystemTest : public ::testing::Test {
 protected:
  std::string Native(std::string_view name) const { return folder_.path() + "/" += name; }
  std::string Model(std::string_view name) const {
    return ToModelPath(folder_.path()) + "\\" += name;
  }

  TempFolder folder_;
  PosixFileSystem fs_;
};

// Answers are kept for reuse (the program's own changes replace them at
// once, as the contract checks); changes made behind its back count from
// the next ForgetAnswers. A folder put in place of one the program has met
// is never reached: its files were never listed.
TEST_F(PosixFileSystemTest, KeptAnswersAreForgottenOnRequestButAReplacedFolderIsNotReached) {
  std::filesystem::create_directory(Native("Sub"));
  WriteNative(Native("Sub/x"), "");
  EXPECT_TRUE(fs_.GetAttributes(Model("SUB\\x")));
  std::filesystem::create_directory(Native("sub"));  // now two folders match
  EXPECT_TRUE(fs_.GetAttributes(Model("SUB\\x")));
  std::filesystem::create_directory(Native("Run"));
  WriteNative(Native("Run/a"), "");
  WriteNative(Native("Run/b"), "");
  EXPECT_TRUE(fs_.GetAttributes(Model("Run\\a")));
  std::filesystem::rename(Native("Run"), Native("Old"));
  std::filesystem::create_directory(Native("Run"));
  WriteNative(Native("Run/b"), "theirs");
  fs_.ForgetAnswers();
  EXPECT_FALSE(fs_.GetAttributes(Model("SUB\\x")));
  EXPECT_FALSE(fs_.GetAttributes(Model("Run\\b")));
  EXPECT_FALSE(fs_.Rename(Model("Run\\b"), Model("Run\\c")));
  EXPECT_THAT(NamesIn(Native("Run")), ElementsAre("b"));
  EXPECT_THAT(NamesIn(Native("Old")), ElementsAre("a", "b"));
}

// The packed table of answers gives back what it kept through the drops
// that move the rest together and the growth that rechains them, the path
// asked for apart from the answer's own included.
TEST(KeptAnswers, GiveBackWhatTheyKeptThroughDropsAndGrowth) {
  KeptAnswers kept;
  const auto answerFor = [](int i) {
    ResolvedPath answer;
    answer.state = i % 3 == 0 ? ResolvedPath::State::kMissing : ResolvedPath::State::kFound;
    answer.native = (i % 2 == 0 ? "/a/Folder/" : "other/") + std::to_string(i) + ".txt";
    answer.info.st_nlink = static_cast<std::uint32_t>(i);
    return answer;
  };
  // Every fifth is asked for under another spelling of its folder.
  const auto asked = [&](int i) {
    const std::string native = answerFor(i).native;
    return i % 5 == 0 ? "/A/FOLDER/" + native.substr(native.find_last_of('/') + 1) : native;
  };
  const auto hash = [](int i) { return static_cast<std::size_t>(i) * 0x9E3779B97F4A7C15u; };
  for (int i = 0; i < 600; ++i) kept.Keep(hash(i), asked(i), answerFor(i));
  for (int i = 0; i < 600; i += 3) kept.Drop(hash(i));
  for (int i = 1; i < 600; i += 3) kept.Drop(hash(i));
  ASSERT_EQ(kept.size(), 200u);
  for (int i = 600; i < 700; ++i) kept.Keep(hash(i), asked(i), answerFor(i));
  for (int i = 0; i < 700; ++i) {
    const std::uint32_t index = kept.Find(hash(i), asked(i));
    ASSERT_EQ(index == KeptAnswers::kNone, i < 600 && i % 3 != 2) << i;
    if (index == KeptAnswers::kNone) continue;
    ResolvedPath answer;
    kept.Recall(index, answer);
    EXPECT_EQ(answer.native, answerFor(i).native);
    EXPECT_EQ(answer.state, answerFor(i).state);
    EXPECT_EQ(answer.info.st_nlink, static_cast<std::uint32_t>(i));
  }
}

// Moving out of one held folder into a third one must not let go of the
// source's folder on the way: the move would then name a file elsewhere.
TEST_F(PosixFileSystemTest, AMoveKeepsHoldOfBothFolders) {
  for (const char* folder : {"A", "B", "C"}) {
    std::filesystem::create_directory(Native(folder));
    WriteNative(Native(folder) + "/x", folder);
  }
  for (const char* path : {"A\\x", "A\\y", "B\\x", "B\\y", "C\\y"}) fs_.GetAttributes(Model(path));
  ASSERT_TRUE(fs_.Rename(Model("A\\x"), Model("C\\x2")));
  EXPECT_FALSE(std::filesystem::exists(Native("A/x")));
  EXPECT_EQ(ReadNative(Native("C/x2")), "A");
  EXPECT_EQ(ReadNative(Native("C/x")), "C");
}

TEST_F(PosixFileSystemTest, NativeBackslashesAreSlashesInTheModel) {
  WriteNative(Native("AC\\DC.mp3"), "x");
  const auto found = fs_.Search(Model("*.mp3"), 0);
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].name, "AC/DC.mp3");
  EXPECT_EQ(fs_.Shown(Model("AC/DC.mp3")), Native("AC\\DC.mp3"));
  EXPECT_TRUE(fs_.Rename(Model("AC/DC.mp3"), Model("a/b.mp3")));
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("a\\b.mp3"));
}

// Linking then unlinking stands in where the kernel cannot rename without
// replacing.
TEST_F(PosixFileSystemTest, NeitherWayOfPlacingReplacesATakenName) {
  WriteNative(Native("mine"), "mine");
  WriteNative(Native("theirs"), "theirs");
  EXPECT_EQ(RenameWithoutReplacing(Native("mine"), Native("theirs")), PlaceResult::kTaken);
  EXPECT_EQ(LinkThenUnlink(Native("mine"), Native("theirs")), PlaceResult::kTaken);
  EXPECT_EQ(ReadNative(Native("theirs")), "theirs");
  EXPECT_EQ(LinkThenUnlink(Native("mine"), Native("free")), PlaceResult::kDone);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("free", "theirs"));
  // A disk that refuses both (FUSE exFAT): the name is tested, then taken.
  const PlacementCalls refusing = {
      [](int, const char*, int, const char*) { return errno = EINVAL, -1; },
      [](int, const char*, int, const char*) { return errno = EPERM, -1; }};
  const auto place = [&](const char* from, const char* to) {
    return RenameWithoutReplacing(AT_FDCWD, Native(from).c_str(), AT_FDCWD, Native(to).c_str(), refusing);
  };
  EXPECT_EQ(place("free", "theirs"), PlaceResult::kTaken);
  EXPECT_EQ(place("free", "placed"), PlaceResult::kDone);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("placed", "theirs"));
  EXPECT_EQ(ReadNative(Native("theirs")), "theirs");
}

// A second file system for moves between file systems: the shared memory
// folder, when it is one and can be written.
class CrossDeviceMoveTest : public ::testing::Test {
 protected:
  static constexpr uid_t kOwner = 1234;
  static constexpr gid_t kGroup = 5678;

  // Runs `step` in a child process as kOwner in kGroup alone; whether it
  // succeeded.
  static bool AsOwner(const std::function<bool()>& step) {
    const pid_t child = fork();
    if (child == 0) {
      const bool dropped = setgroups(0, nullptr) == 0 && setresgid(kGroup, kGroup, kGroup) == 0 &&
                           setresuid(kOwner, kOwner, kOwner) == 0;
      _exit(dropped && step() ? 0 : 1);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
  }

  void SetUp() override {
    struct stat here {}, there {};
    if (target_.path().empty() || stat(source_.path().c_str(), &here) != 0 ||
        stat(target_.path().c_str(), &there) != 0 || here.st_dev == there.st_dev) {
      GTEST_SKIP() << "no second file system to move to";
    }
    data_.resize(2'500'000);
    for (std::size_t i = 0; i < data_.size(); ++i) data_[i] = static_cast<char>(i * 7 % 251);
    WriteNative(From(), data_);
  }
  std::string From() const { return source_.path() + "/big.bin"; }
  std::string To() const { return target_.path() + "/big.bin"; }
  bool Move(const std::string& from, const std::string& to) {
    return fs_.Rename(ToModelPath(from), ToModelPath(to));
  }

  TempFolder source_;
  TempFolder target_{"/dev/shm"};
  std::string data_;
  PosixFileSystem fs_;
};

TEST_F(CrossDeviceMoveTest, MovesDataOwnerPermissionsTimesAndAttributes) {
  const bool administrator = geteuid() == 0;
  if (administrator) {
    ASSERT_EQ(chown(From().c_str(), kOwner, kGroup), 0);
  }
  const bool tagged = setxattr(From().c_str(), "user.tessaly", "kept", 4, 0) == 0;
  chmod(From().c_str(), 0440);  // read-only: its owner can set no attribute on it
  const struct timespec times[2] = {{1'000'000'000, 0}, {1'200'000'000, 0}};
  utimensat(AT_FDCWD, From().c_str(), times, 0);
  ASSERT_TRUE(Move(From(), To()));
  EXPECT_EQ(ReadNative(To()), data_);
  EXPECT_THAT(NamesIn(source_.path()), IsEmpty());
  struct stat moved {};
  ASSERT_EQ(stat(To().c_str(), &moved), 0);
  EXPECT_EQ(moved.st_mode & 07777, 0440u);
  EXPECT_EQ(moved.st_mtim.tv_sec, 1'200'000'000);
  char tag[8] = {};
  if (tagged) {
    EXPECT_EQ(getxattr(To().c_str(), "user.tessaly", tag, sizeof tag), 4);
  }
  if (!administrator) GTEST_SKIP() << "only an administrator can give a file to another owner";
  EXPECT_EQ(moved.st_uid, kOwner);
  EXPECT_EQ(moved.st_gid, kGroup);
  // The administrator may write to any file, which hides what its owner
  // meets: the owner moves it back.
  for (const TempFolder* folder : {&source_, &target_}) {
    ASSERT_EQ(chown(folder->path().c_str(), kOwner, kGroup), 0);
  }
  EXPECT_TRUE(AsOwner([&] { return Move(To(), From()); }));
  if (tagged) {
    EXPECT_EQ(getxattr(From().c_str(), "user.tessaly", tag, sizeof tag), 4);
  }
}

// A newer version saved under the source's name while it is copied, in
// place or the way editors save (a new file renamed over the name): the
// copy is in place, and the source stays.
TEST_F(CrossDeviceMoveTest, ASourceChangedDuringTheCopyStays) {
  const std::function<void()> saves[] = {
      [this] { std::ofstream(From(), std::ios::app) << "newer"; },
      [this] {
        WriteNative(From() + ".new", "newer");
        std::filesystem::rename(From(), From() + ".bak");
        std::filesystem::rename(From() + ".new", From());
      },
  };
  for (const auto& save : saves) {
    WriteNative(From(), data_);
    std::filesystem::remove(To());
    fs_.SetMoveFaultForTesting([&](MoveStage at) {
      if (at == MoveStage::kSync) save();
      return false;
    });
    ASSERT_TRUE(Move(From(), To()));
    EXPECT_EQ(ReadNative(To()), data_);
    EXPECT_THAT(ReadNative(From()), ::testing::Optional(::testing::EndsWith("newer")));
    fs_.ForgetAnswers();
  }
}

// A failure at any stage, a FIFO (whose copy would wait for a writer for
// good), or a target that appears during the copy: the source stays whole,
// and nothing of the copy is left.
TEST_F(CrossDeviceMoveTest, FailuresLeaveTheSourceWholeAndNoCopy) {
  for (const MoveStage stage : {MoveStage::kCopy, MoveStage::kSync, MoveStage::kPlace}) {
    fs_.SetMoveFaultForTesting([stage](MoveStage at) { return at == stage; });
    EXPECT_FALSE(Move(From(), To()));
    EXPECT_EQ(ReadNative(From()), data_);
    EXPECT_THAT(NamesIn(target_.path()), IsEmpty());
  }
  fs_.SetMoveFaultForTesting(nullptr);
  const std::string fifo = source_.path() + "/pipe";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0644), 0);
  alarm(10);  // ends the test should the open wait after all
  EXPECT_FALSE(Move(fifo, target_.path() + "/pipe"));
  alarm(0);
  EXPECT_THAT(NamesIn(source_.path()), ElementsAre("big.bin", "pipe"));
  EXPECT_THAT(NamesIn(target_.path()), IsEmpty());
  fs_.SetMoveFaultForTesting([this](MoveStage at) {
    if (at == MoveStage::kPlace) WriteNative(To(), "theirs");
    return false;
  });
  EXPECT_FALSE(Move(From(), To()));
  EXPECT_EQ(ReadNative(To()), "theirs");
  EXPECT_EQ(ReadNative(From()), data_);
  EXPECT_THAT(NamesIn(target_.path()), ElementsAre("big.bin"));
}

}  // namespace
}  // namespace tessaly
