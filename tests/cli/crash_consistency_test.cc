// Runs of tessaly-cli killed at random moments, again and again: every
// file's content is still there exactly once, under its old name, its new
// name or its temporary name. The runs rename within a folder, or move to a
// folder on another file system, where a whole copy beside the source is
// allowed too, and nothing else.
//
// TESSALY_CRASH_FILES and TESSALY_CRASH_KILLS (kills per run) change the
// size; bench/crash_consistency.sh repeats larger runs and prints figures.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "cli_runner.h"
#include "temp_folder.h"

namespace tessaly::cli {
namespace {

namespace fs = std::filesystem;

int Setting(const char* name, int fallback) {
  const char* value = std::getenv(name);
  return value != nullptr && std::atoi(value) > 0 ? std::atoi(value) : fallback;
}

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string Upper(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

// Where each file's content was found, by the file's number.
struct Places {
  std::vector<std::string> old, renamed, temp;  // names found; more than one is a fault
};

// What one look at the folders found.
struct Tally {
  int old = 0, renamed = 0, temp = 0, copies = 0, faults = 0;
};

class CrashConsistencyTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::create_directory(files_);
    fs::create_directory(registry_);
    count_ = Setting("TESSALY_CRASH_FILES", 2000);
    for (int i = 0; i < count_; ++i) {
      std::ofstream(files_ + "/" + OldName(i)) << "content " << i << "\n";
    }
  }
  static std::string OldName(int i) { return "f" + std::to_string(i) + ".txt"; }
  static std::string NewName(int i) { return Upper(OldName(i)); }

  // A folder on another file system, or nothing.
  std::string FarFolder() {
    struct stat here {}, there {};
    if (stat("/dev/shm", &there) != 0 || stat(root_.path().c_str(), &here) != 0 ||
        here.st_dev == there.st_dev) {
      return "";
    }
    farFolder_ = std::make_unique<testing::TempFolder>("/dev/shm");
    far_ = farFolder_->path();
    return far_;
  }

  bool Pending(int i) const { return fs::exists(files_ + "/" + OldName(i)); }
  bool Pending() const {
    for (int i = 0; i < count_; ++i) {
      if (Pending(i)) return true;
    }
    return false;
  }

  // tessaly-cli over every file still under its old name, with `switches`.
  pid_t StartCliOnPending(std::vector<std::string> switches) const {
    std::vector<std::string> args;
    for (int i = 0; i < count_; ++i) {
      if (Pending(i)) args.push_back(OldName(i));
    }
    args.insert(args.end(), switches.begin(), switches.end());
    return StartCli(args, files_, registry_);
  }

  pid_t StartRenames() const { return StartCliOnPending({"/settings:UpperCase", "/step:4"}); }

  // The first placement leads from the files' folder to `far_`; upper-cased
  // with the name, its folders are found again ignoring case.
  pid_t StartMoves() const {
    std::string toFar = fs::relative(far_, files_).string() + "/";
    std::replace(toFar.begin(), toFar.end(), '/', '\\');
    return StartCliOnPending({"/placement1:" + toFar, "/placement2:Document Name",
                              "/placement3:extension", "/placement4:(none)", "/placement5:(none)",
                              "/placement6:(none)", "/settings:UpperCase", "/step:4"});
  }

  // Kills the process once a file picked at random among those still to go
  // has its new name in `target`: a random moment within the run, however
  // fast the machine. False when it ended by itself first.
  bool KillMidway(pid_t pid, const std::string& target) {
    std::vector<int> pending;
    for (int i = 0; i < count_; ++i) {
      if (Pending(i)) pending.push_back(i);
    }
    const int pick =
        pending.empty() ? 0 : pending[std::uniform_int_distribution<std::size_t>(
                                          0, pending.size() - 1)(random_)];
    const std::string sign = target + "/" + NewName(pick);
    int status = 0;
    while (waitpid(pid, &status, WNOHANG) == 0) {
      if (fs::exists(sign)) {
        kill(pid, SIGKILL);
        waitpid(pid, &status, 0);
        return true;
      }
      std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return false;
  }

  // Looks at both folders, fails the test on any content lost, doubled or
  // misnamed, and removes the sources of finished copies so the next run
  // does not ask about them.
  Tally Check(const std::string& target) {
    std::map<int, Places> found;
    Tally tally;
    const std::vector<std::string> folders =
        target == files_ ? std::vector{files_} : std::vector{files_, target};
    for (const std::string& folder : folders) {
      for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        const std::string content = ReadFile(entry.path());
        int i = -1;
        if (std::sscanf(content.c_str(), "content %d\n", &i) != 1 || i < 0 || i >= count_ ||
            content != "content " + std::to_string(i) + "\n") {
          ADD_FAILURE() << "unknown or damaged file " << entry.path();
          ++tally.faults;
          continue;
        }
        if (folder == files_ && name == OldName(i)) {
          found[i].old.push_back(entry.path());
        } else if (folder == target && name == NewName(i)) {
          found[i].renamed.push_back(entry.path());
        } else if (folder == target && name == NewName(i) + ".temp") {
          found[i].temp.push_back(entry.path());
        } else {
          ADD_FAILURE() << "content " << i << " under a wrong name " << entry.path();
          ++tally.faults;
        }
      }
    }
    for (int i = 0; i < count_; ++i) {
      const Places& at = found[i];
      const std::size_t places = at.old.size() + at.renamed.size() + at.temp.size();
      const bool copied = target != files_ && at.old.size() == 1 && at.renamed.size() == 1 &&
                          at.temp.empty();
      if (copied) {
        ++tally.copies;
        fs::remove(at.old[0]);
      } else if (places != 1) {
        ADD_FAILURE() << "content " << i << " found " << places << " times";
        ++tally.faults;
      }
      tally.old += static_cast<int>(at.old.size());
      tally.renamed += static_cast<int>(at.renamed.size());
      tally.temp += static_cast<int>(at.temp.size());
    }
    return tally;
  }

  // Kills `kills` runs started by `start` into `target`, checking after
  // each, then lets one finish.
  void KillAndCheck(const std::function<pid_t()>& start, const std::string& target,
                    const char* label) {
    const int kills = Setting("TESSALY_CRASH_KILLS", 3);
    for (int k = 0; k < kills && Pending(); ++k) {
      const bool killed = KillMidway(start(), target);
      const Tally tally = Check(target);
      std::cout << label << " kill " << k + 1 << (killed ? "" : " (ended by itself)")
                << ": old " << tally.old << ", new " << tally.renamed << ", temp " << tally.temp
                << ", copy beside source " << tally.copies << ", faults " << tally.faults << "\n";
      if (tally.faults > 0) return;
    }
    int status = 0;
    waitpid(start(), &status, 0);
    const Tally last = Check(target);
    EXPECT_EQ(last.faults, 0);
    EXPECT_EQ(last.old, 0);
  }

  int count_ = 0;
  testing::TempFolder root_;
  std::unique_ptr<testing::TempFolder> farFolder_;
  std::string files_ = root_.path() + "/files", registry_ = root_.path() + "/registry", far_;
  std::mt19937 random_{std::random_device{}()};
};

TEST_F(CrashConsistencyTest, KilledRenamesLoseAndDoubleNothing) {
  KillAndCheck([this] { return StartRenames(); }, files_, "renames");
}

TEST_F(CrashConsistencyTest, KilledMovesToAnotherFileSystemLoseNothing) {
  if (FarFolder().empty()) GTEST_SKIP() << "no second file system to move to";
  KillAndCheck([this] { return StartMoves(); }, far_, "moves to another file system");
}

}  // namespace
}  // namespace tessaly::cli
