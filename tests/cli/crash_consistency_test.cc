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

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <set>
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

// What one look at the folders found.
struct Tally {
  int at[3] = {}, copies = 0, faults = 0;  // at: contents under the old, new, temporary names
};

class CrashConsistencyTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::create_directory(files_);
    fs::create_directory(registry_);
    for (int i = 0; i < count_; ++i) std::ofstream(Old(i)) << Content(i);
  }
  static std::string Content(int i) { return "content " + std::to_string(i) + "\n"; }
  static std::string Name(int i) { return "f" + std::to_string(i) + ".txt"; }
  std::string Old(int i) const { return files_ + "/" + Name(i); }
  std::string New(int i) const { return target_ + "/F" + std::to_string(i) + ".TXT"; }

  std::vector<int> Pending() const {
    std::vector<int> pending;
    for (int i = 0; i < count_; ++i) {
      if (fs::exists(Old(i))) pending.push_back(i);
    }
    return pending;
  }

  // tessaly-cli upper-casing every file still under its old name, with
  // `placements` first.
  pid_t Start(const std::vector<std::string>& placements) const {
    std::vector<std::string> args;
    for (int i : Pending()) args.push_back(Name(i));
    args.insert(args.end(), placements.begin(), placements.end());
    args.insert(args.end(), {"/settings:UpperCase", "/step:4"});
    return StartCli(args, files_, registry_);
  }

  // Kills the run once a file picked at random among those still to go has
  // its new name: a random moment within the run, however fast the
  // machine. False when it ended by itself first.
  bool KillMidway(pid_t pid) {
    const std::vector<int> pending = Pending();
    const std::string sign = pending.empty() ? "" : New(pending[random_() % pending.size()]);
    for (int status = 0; waitpid(pid, &status, WNOHANG) == 0;) {
      if (fs::exists(sign)) {
        kill(pid, SIGKILL);
        waitpid(pid, &status, 0);
        return true;
      }
      std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return false;
  }

  // Looks at both folders, fails the test on any content lost, doubled,
  // damaged or misnamed, and removes the sources of finished copies so the
  // next run does not ask about them.
  Tally Check() {
    std::vector<std::array<int, 3>> found(count_);
    Tally tally;
    for (const std::string& folder : std::set{files_, target_}) {
      for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string path = entry.path().string();
        std::ifstream in(path, std::ios::binary);
        const std::string content{std::istreambuf_iterator<char>(in), {}};
        int i = -1;
        std::sscanf(content.c_str(), "content %d", &i);
        const std::string places[] = {Old(i), New(i), New(i) + ".temp"};
        const auto place = std::ranges::find(places, path) - places;
        if (i < 0 || i >= count_ || content != Content(i) || place == 3) {
          ADD_FAILURE() << "unknown or damaged file, or one under a wrong name: " << path;
          ++tally.faults;
        } else {
          ++found[i][place];
          ++tally.at[place];
        }
      }
    }
    for (int i = 0; i < count_; ++i) {
      const auto [old, renamed, temp] = found[i];
      if (target_ != files_ && old == 1 && renamed == 1 && temp == 0) {
        ++tally.copies;
        fs::remove(Old(i));
      } else if (old + renamed + temp != 1) {
        ADD_FAILURE() << "content " << i << " found " << old + renamed + temp << " times";
        ++tally.faults;
      }
    }
    return tally;
  }

  // Kills runs, checking after each, then lets one finish.
  void KillAndCheck(const std::vector<std::string>& placements, const char* label) {
    const int kills = Setting("TESSALY_CRASH_KILLS", 3);
    for (int k = 0; k < kills && !Pending().empty(); ++k) {
      const bool killed = KillMidway(Start(placements));
      const Tally tally = Check();
      std::cout << label << " kill " << k + 1 << (killed ? "" : " (ended by itself)")
                << ": old " << tally.at[0] << ", new " << tally.at[1] << ", temp " << tally.at[2]
                << ", copy beside source " << tally.copies << ", faults " << tally.faults << "\n";
      if (tally.faults > 0) return;
    }
    waitpid(Start(placements), nullptr, 0);
    EXPECT_EQ(Check().at[0], 0);  // every file renamed; Check reports any fault itself
  }

  const int count_ = Setting("TESSALY_CRASH_FILES", 2000);
  testing::TempFolder root_;
  std::string files_ = root_.path() + "/files", registry_ = root_.path() + "/registry";
  std::string target_ = files_;
  std::mt19937 random_{std::random_device{}()};
};

TEST_F(CrashConsistencyTest, KilledRenamesLoseAndDoubleNothing) { KillAndCheck({}, "renames"); }

TEST_F(CrashConsistencyTest, KilledMovesToAnotherFileSystemLoseNothing) {
  struct stat here {}, there {};
  if (stat("/dev/shm", &there) != 0 || stat(root_.path().c_str(), &here) != 0 ||
      here.st_dev == there.st_dev) {
    GTEST_SKIP() << "no second file system to move to";
  }
  const testing::TempFolder far("/dev/shm");
  target_ = far.path();
  // The first placement leads from the files' folder there; upper-cased
  // with the name, its folders are found again ignoring case.
  std::string toFar = fs::relative(target_, files_).string() + "/";
  std::replace(toFar.begin(), toFar.end(), '/', '\\');
  KillAndCheck({"/placement1:" + toFar, "/placement2:Document Name", "/placement3:extension",
                "/placement4:(none)", "/placement5:(none)", "/placement6:(none)"},
               "moves to another file system");
}

}  // namespace
}  // namespace tessaly::cli
