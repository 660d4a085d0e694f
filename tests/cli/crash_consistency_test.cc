// Runs of tessaly-cli killed at random moments, again and again: every
// file's content is still there exactly once, under its old name, its new
// name or its temporary name, and after `--undo` under its old name. The
// runs rename within a folder, or move to a folder on another file system,
// where a whole copy beside the source is allowed too, and nothing else.
//
// TESSALY_CRASH_FILES and TESSALY_CRASH_KILLS (kills per run) change the
// size; bench/crash_consistency.sh repeats larger runs and prints figures.
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "cli_runner.h"
#include "journal/journal_reader.h"
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
  // `words` (placements, options) first.
  pid_t Start(const std::vector<std::string>& words) const {
    std::vector<std::string> args;
    for (int i : Pending()) args.push_back(Name(i));
    args.insert(args.end(), words.begin(), words.end());
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

  // Undoes the last run: every content is back under its old name, and
  // nowhere else.
  bool UndoAndCheck(const char* label) {
    const CliResult undo = RunCli({"--undo"}, files_, registry_);
    const Tally tally = Check();
    std::cout << label << " undo: old " << tally.at[0] << ", faults " << tally.faults << "\n";
    EXPECT_EQ(undo.exitCode, 0) << undo.err;
    EXPECT_EQ(tally.at[0], count_) << "contents not back under their old names";
    return tally.faults == 0 && tally.at[0] == count_;
  }

  // Kills runs, checking and undoing after each, then lets one finish and
  // undoes it.
  void KillAndCheck(const std::vector<std::string>& placements, const char* label) {
    const int kills = Setting("TESSALY_CRASH_KILLS", 3);
    for (int k = 0; k < kills && !Pending().empty(); ++k) {
      const bool killed = KillMidway(Start(placements));
      const Tally tally = Check();
      std::cout << label << " kill " << k + 1 << (killed ? "" : " (ended by itself)")
                << ": old " << tally.at[0] << ", new " << tally.at[1] << ", temp " << tally.at[2]
                << ", copy beside source " << tally.copies << ", faults " << tally.faults << "\n";
      if (tally.faults > 0 || !UndoAndCheck(label)) return;
    }
    waitpid(Start(placements), nullptr, 0);
    EXPECT_EQ(Check().at[0], 0);  // every file renamed; Check reports any fault itself
    UndoAndCheck(label);
  }

  const int count_ = Setting("TESSALY_CRASH_FILES", 2000);
  testing::TempFolder root_;
  std::string files_ = root_.path() + "/files", registry_ = root_.path() + "/registry";
  std::string target_ = files_;
  std::mt19937 random_{std::random_device{}()};
};

// Another program that puts a file of its own under each name in `folder`
// the moment a file is moved away from it, as fast as the kernel tells it.
class Recreator {
 public:
  explicit Recreator(std::string folder) : folder_(std::move(folder)) {
    inotify_add_watch(fd_, folder_.c_str(), IN_MOVED_FROM);
    thread_ = std::thread([this] { Watch(); });
  }
  ~Recreator() { Stop(); }
  // Stops watching; the names it has filled, each with "theirs" and the name.
  const std::vector<std::string>& Stop() {
    if (thread_.joinable()) {
      stop_ = true;
      thread_.join();
      close(fd_);
    }
    return recreated_;
  }

 private:
  void Watch() {
    alignas(inotify_event) char buffer[64 * 1024];
    pollfd watch{fd_, POLLIN, 0};
    while (!stop_) {
      if (poll(&watch, 1, 20) <= 0) continue;
      const ssize_t got = read(fd_, buffer, sizeof buffer);
      for (ssize_t at = 0; at < got;) {
        const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        const std::string name = event->len > 0 ? event->name : "";
        const int file = open((folder_ + "/" + name).c_str(), O_WRONLY | O_CREAT | O_EXCL, 0644);
        if (file < 0) continue;
        const std::string theirs = "theirs " + name;
        if (write(file, theirs.data(), theirs.size()) > 0) recreated_.push_back(name);
        close(file);
      }
    }
  }

  std::string folder_;
  int fd_ = inotify_init1(IN_CLOEXEC);
  std::atomic<bool> stop_ = false;
  std::vector<std::string> recreated_;
  std::thread thread_;
};

// The contents of every file in `folder`, counted.
std::map<std::string, int> ContentsIn(const std::string& folder) {
  std::map<std::string, int> contents;
  for (const auto& entry : fs::directory_iterator(folder)) {
    std::ifstream in(entry.path(), std::ios::binary);
    ++contents[std::string(std::istreambuf_iterator<char>(in), {})];
  }
  return contents;
}

// Races with other programs: a file put under an old name as the file is
// moved away from it is theirs and stays; two runs renaming into each
// other's names at once lose nothing (what they refuse waits under a
// temporary name).
TEST_F(CrashConsistencyTest, OtherProgramsAtWorkInTheFolderLoseNothing) {
  Recreator other(files_);
  waitpid(Start({}), nullptr, 0);
  const std::vector<std::string> recreated = other.Stop();
  std::map<std::string, int> contents = ContentsIn(files_);
  int lost = 0;
  for (const std::string& name : recreated) lost += contents["theirs " + name] != 1;
  for (int i = 0; i < count_; ++i) lost += contents[Content(i)] != 1;
  std::cout << "race: " << recreated.size() << " names taken again as they were moved away, "
            << lost << " files lost\n";
  EXPECT_EQ(lost, 0);
  // Their files keep the old names; the undo replaces none of them.
  RunCli({"--undo"}, files_, registry_);
  EXPECT_EQ(ContentsIn(files_), contents);

  const testing::TempFolder crossing;
  std::vector<std::string> lower, upper;
  const int pairs = count_ / 4;  // each run asks about every pair
  for (int i = 0; i < pairs; ++i) {
    const std::string name = "x" + std::to_string(i) + ".txt", twin = "X" + std::to_string(i) + ".TXT";
    std::ofstream(crossing.path() + "/" + name) << "lower " << i;
    std::ofstream(crossing.path() + "/" + twin) << "upper " << i;
    lower.push_back(name);
    upper.push_back(twin);
  }
  lower.insert(lower.end(), {"/settings:UpperCase", "/step:4"});
  upper.insert(upper.end(), {"/settings:LowerCase", "/step:4"});
  fs::create_directories(registry_ + "/up");
  fs::create_directories(registry_ + "/down");
  const pid_t up = StartCli(lower, crossing.path(), registry_ + "/up");
  const pid_t down = StartCli(upper, crossing.path(), registry_ + "/down");
  waitpid(up, nullptr, 0);
  waitpid(down, nullptr, 0);
  contents = ContentsIn(crossing.path());
  lost = 0;
  for (int i = 0; i < pairs; ++i) {
    lost += (contents["lower " + std::to_string(i)] != 1) + (contents["upper " + std::to_string(i)] != 1);
  }
  std::cout << "race: two crossing runs over " << 2 * pairs << " files, " << lost << " lost\n";
  EXPECT_EQ(lost, 0);
}

TEST_F(CrashConsistencyTest, KilledRenamesLoseAndDoubleNothing) { KillAndCheck({}, "renames"); }

// The journal of the one run recorded.
JournalContent OnlyJournal(const std::string& folder) {
  std::vector<fs::path> journals(fs::directory_iterator(folder), {});
  if (journals.size() != 1) ADD_FAILURE() << journals.size() << " journals";
  std::ifstream in(journals.at(0), std::ios::binary);
  return ReadJournal(std::string(std::istreambuf_iterator<char>(in), {})).value_or(JournalContent{});
}

// A signal to stop once the run is under way (its first JSON line out, which
// streaming alone allows, or its first file renamed): the run ends between
// files with the signal's status, and its log, JSON lines and journal name
// the files done, each under its new name, and no other.
TEST_F(CrashConsistencyTest, AStopSignalEndsTheRunBetweenFilesWithItsLog) {
  const struct {
    int signal;
    bool json;
    int exitCode;
  } rows[] = {{SIGINT, true, 130}, {SIGTERM, false, 143}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.signal);
    fs::remove_all(registry_ + "/runs");
    const std::string output = registry_ + "/.stdout";
    fs::remove(output);
    const pid_t pid = Start(row.json ? std::vector<std::string>{"--json"} : std::vector<std::string>{});
    const auto underWay = [&] {
      if (!row.json) return fs::exists(New(0));
      std::error_code missing;  // until the program has opened it
      const auto size = fs::file_size(output, missing);
      return !missing && size > 0;
    };
    int status = 0;
    while (waitpid(pid, &status, WNOHANG) == 0) {
      if (underWay()) {
        kill(pid, row.signal);
        waitpid(pid, &status, 0);
        break;
      }
      std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), row.exitCode);
    const Tally tally = Check();
    const int done = tally.at[1];
    std::cout << "signal " << row.signal << " after " << done << " of " << count_ << " files\n";
    EXPECT_TRUE(done > 0 && done < count_) << done;
    EXPECT_EQ(tally.at[2], 0) << "left between the two stages of a move";
    std::ifstream in(output, std::ios::binary);
    const std::string out{std::istreambuf_iterator<char>(in), {}};
    const std::string perFile = row.json ? "\"code\":\"completed\"}\n" : " (Completed)\n";
    int lines = 0;
    for (auto at = out.find(perFile); at != std::string::npos; at = out.find(perFile, at + 1)) ++lines;
    EXPECT_EQ(lines, done) << out.substr(out.size() - std::min<std::size_t>(out.size(), 300));
    const JournalContent journal = OnlyJournal(registry_ + "/runs");
    EXPECT_FALSE(journal.finished);
    EXPECT_EQ(journal.changes.size(), static_cast<std::size_t>(done));
    EXPECT_TRUE(std::ranges::all_of(journal.changes, [](const JournalChange& change) {
      return change.result == JournalChange::Result::kDone;
    })) << "a result the signal kept from the journal";
    if (!UndoAndCheck("stopped")) return;
  }
}

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
