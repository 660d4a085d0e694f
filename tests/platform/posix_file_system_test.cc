// What the POSIX backend does beyond the shared contract: its kept
// answers, native names, links, and moves between file systems.
#include <gmock/gmock.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <filesystem>

#include "file_system_backends.h"
#include "platform/posix/cross_device_move.h"
#include "platform/posix/native_path.h"
#include "platform/posix/no_replace_rename.h"
#include "platform/posix/posix_file_system.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::NamesIn;
using testing::ReadNative;
using testing::TempFolder;
using testing::WriteNative;

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
// the next ForgetAnswers.
TEST_F(PosixFileSystemTest, KeptAnswersAreForgottenOnRequest) {
  std::filesystem::create_directory(Native("Sub"));
  WriteNative(Native("Sub/x"), "");
  EXPECT_TRUE(fs_.GetAttributes(Model("SUB\\x")));
  std::filesystem::create_directory(Native("sub"));  // now two folders match
  EXPECT_TRUE(fs_.GetAttributes(Model("SUB\\x")));
  fs_.ForgetAnswers();
  EXPECT_FALSE(fs_.GetAttributes(Model("SUB\\x")));
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
}

// A second file system for moves between file systems: the shared memory
// folder, when it is one and can be written.
class CrossDeviceMoveTest : public ::testing::Test {
 protected:
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
    ASSERT_EQ(chown(From().c_str(), 1234, 5678), 0);
  }
  chmod(From().c_str(), 0640);
  const struct timespec times[2] = {{1'000'000'000, 0}, {1'200'000'000, 0}};
  utimensat(AT_FDCWD, From().c_str(), times, 0);
  const bool tagged = setxattr(From().c_str(), "user.tessaly", "kept", 4, 0) == 0;
  ASSERT_TRUE(Move(From(), To()));
  EXPECT_EQ(ReadNative(To()), data_);
  EXPECT_THAT(NamesIn(source_.path()), IsEmpty());
  struct stat moved {};
  ASSERT_EQ(stat(To().c_str(), &moved), 0);
  EXPECT_EQ(moved.st_mode & 07777, 0640u);
  EXPECT_EQ(moved.st_mtim.tv_sec, 1'200'000'000);
  char tag[8] = {};
  if (tagged) {
    EXPECT_EQ(getxattr(To().c_str(), "user.tessaly", tag, sizeof tag), 4);
  }
  if (!administrator) GTEST_SKIP() << "only an administrator can give a file to another owner";
  EXPECT_EQ(moved.st_uid, 1234u);
  EXPECT_EQ(moved.st_gid, 5678u);
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
