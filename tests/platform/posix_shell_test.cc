#include "platform/posix/posix_shell.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <thread>

#include "platform/posix/native_path.h"
#include "temp_folder.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kFileNotFound = 2;
constexpr std::int32_t kPathNotFound = 3;
constexpr std::int32_t kAccessDenied = 5;
constexpr std::int32_t kBadProgramFile = 11;
constexpr std::int32_t kNoAssociation = 31;

class PosixShellTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // The recorder writes how many arguments it got, the first one and its
    // working folder, and makes the answer appear at once.
    WriteFile(recorder_,
              "#!/bin/sh\n"
              "printf '%s\\n%s\\n%s' \"$#\" \"$1\" \"$(pwd)\" > '" + Answer() + ".part'\n"
              "mv '" + Answer() + ".part' '" + Answer() + "'\n",
              0755);
  }
  void TearDown() override {
    // A folder made unreadable by a test must be readable to be removed.
    std::error_code ignored;
    fs::permissions(root_ + "/locked", fs::perms::owner_all, ignored);
  }

  std::string Answer() const { return root_ + "/answer"; }

  static void WriteFile(const std::string& path, const std::string& contents, mode_t mode) {
    std::ofstream(path) << contents;
    chmod(path.c_str(), mode);
  }

  // What the recorder wrote, once it has; nothing after five seconds.
  std::optional<std::string> AwaitAnswer() const {
    for (int i = 0; i < 500; ++i) {
      std::ifstream in(Answer());
      if (in) return std::string(std::istreambuf_iterator<char>(in), {});
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return std::nullopt;
  }

  std::int32_t Open(const std::string& nativeFile, const std::string& parameters = "",
                    const std::string& nativeDirectory = "", const std::string& verb = "open") {
    ShellRequest request{0, verb, ToModelPath(nativeFile), parameters,
                         nativeDirectory.empty() ? "" : ToModelPath(nativeDirectory), 0};
    return shell_.Execute(request);
  }

  testing::TempFolder folder_{"/tmp"};  // the case test spells it "/TMP"
  std::string root_ = folder_.path();
  std::string recorder_ = root_ + "/Record.sh";
  PosixShell shell_;
};

TEST_F(PosixShellTest, AProgramGetsItsParameterTextAsOneArgumentInItsDirectory) {
  const std::string parameters = "Tessaly,1.0.14 two  words \"quoted\" 'single' $HOME;|* \\x";
  const std::string folder = root_ + "/work folder";
  fs::create_directory(folder);
  for (const auto& [given, directory, expected] :
       {std::tuple{parameters, std::string(), "1\n" + parameters + "\n" + fs::current_path().string()},
        {"", "", "0\n\n" + fs::current_path().string()},
        {"x", folder, "1\nx\n" + folder}}) {
    fs::remove(Answer());
    EXPECT_GT(Open(recorder_, given, directory), 32);
    EXPECT_EQ(AwaitAnswer(), expected);
  }
}

TEST_F(PosixShellTest, ADocumentGoesToTheOpenerAsOneArgument) {
  const std::string document = root_ + "/my letter.txt";
  WriteFile(document, "hello", 0644);
  PosixShell shell(recorder_);
  // The parameters belong to no program here and are not passed on.
  const ShellRequest request{0, "open", ToModelPath(document), "--print", "", 1};
  EXPECT_GT(shell.Execute(request), 32);
  EXPECT_EQ(AwaitAnswer(), "1\n" + document + "\n" + fs::current_path().string());
}

TEST_F(PosixShellTest, FailuresAnswerWithTheShellsCodes) {
  const std::string document = root_ + "/notes.txt";
  WriteFile(document, "hello", 0644);
  const std::string noScript = root_ + "/plain";
  WriteFile(noScript, "not a program\n", 0755);
  PosixShell noOpener(root_ + "/no-such-opener");
  const struct {
    const char* what;
    PosixShell& shell;
    std::string file, directory, verb;
    std::int32_t answer;
  } cases[] = {
      {"missing file", shell_, root_ + "/gone.sh", "", "open", kFileNotFound},
      {"missing folder", shell_, root_ + "/gone/x.sh", "", "open", kPathNotFound},
      {"missing directory", shell_, recorder_, root_ + "/gone", "open", kPathNotFound},
      {"directory is a file", shell_, recorder_, document, "open", kPathNotFound},
      {"unknown verb", shell_, recorder_, "", "print", kNoAssociation},
      {"no opener", noOpener, document, "", "open", kNoAssociation},
      // Never handed to a command shell instead.
      {"no program format", shell_, noScript, "", "open", kBadProgramFile},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const ShellRequest request{0, c.verb, ToModelPath(c.file),
                               "x", c.directory.empty() ? "" : ToModelPath(c.directory), 1};
    EXPECT_EQ(c.shell.Execute(request), c.answer);
  }
  EXPECT_FALSE(fs::exists(Answer()));
}

TEST_F(PosixShellTest, AFolderThatMayNotBeSearchedDeniesAccess) {
  if (geteuid() == 0) GTEST_SKIP() << "the administrator may search any folder";
  const std::string locked = root_ + "/locked";
  fs::create_directory(locked);
  WriteFile(locked + "/x.sh", "#!/bin/sh\n", 0755);
  chmod(locked.c_str(), 0);
  EXPECT_EQ(Open(locked + "/x.sh"), kAccessDenied);
}

TEST_F(PosixShellTest, NothingStartedIsLeftAsAChildToReap) {
  EXPECT_GT(Open(recorder_, "x"), 32);
  ASSERT_TRUE(AwaitAnswer().has_value());
  errno = 0;
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

}  // namespace
}  // namespace tessaly
