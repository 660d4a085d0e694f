// The POSIX file system in a folder of 32,767 files, the most the wizard's
// list holds: (a) existence checks that miss, which must stay cheap though a
// miss means a look for the name in other letter case; (b) a rename run as
// the wizard does it (check, no-replace rename, check after), against a bare
// renameat2 loop over the same files in the same run.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"

namespace tessaly {
namespace {

constexpr int kFileCount = 32'767;

// A folder full of empty files, removed at the end.
class BigFolder {
 public:
  BigFolder() {
    std::string pattern = std::filesystem::temp_directory_path().string() + "/tessaly-bench-XXXXXX";
    native_ = mkdtemp(pattern.data()) != nullptr ? pattern : "";
    for (int i = 0; i < kFileCount; ++i) close(creat(Native(SourceName(i)).c_str(), 0644));
  }
  ~BigFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(native_, ignored);
  }
  static std::string SourceName(int i) { return "img_" + std::to_string(10000 + i) + ".jpg"; }
  static std::string TargetName(int i) { return "Trip " + std::to_string(10000 + i) + ".JPG"; }
  std::string Native(const std::string& name) const { return native_ + "/" + name; }
  std::string Model(const std::string& name) const { return ToModelPath(Native(name)); }

 private:
  std::string native_;
};

void BM_MissingLookupInBigFolder(benchmark::State& state) {
  const BigFolder folder;
  PosixFileSystem fs;
  std::vector<std::string> misses;
  for (int i = 0; i < 4096; ++i) {
    misses.push_back(folder.Model("NOT THERE " + std::to_string(i) + ".JPG"));
  }
  fs.GetAttributes(misses.front());  // the first look reads the folder
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(fs.GetAttributes(misses[next]));
    next = (next + 1) % misses.size();
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_MissingLookupInBigFolder)->Unit(benchmark::kMicrosecond);

double SecondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Sources to targets with a bare renameat2, and back, timing the first half.
double BareRenames(const std::vector<std::string>& from, const std::vector<std::string>& to) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < kFileCount; ++i) {
    renameat2(AT_FDCWD, from[i].c_str(), AT_FDCWD, to[i].c_str(), RENAME_NOREPLACE);
  }
  const double seconds = SecondsSince(start);
  for (int i = 0; i < kFileCount; ++i) std::rename(to[i].c_str(), from[i].c_str());
  return seconds;
}

// The wizard's direct road for every file, through the backend.
double BackendRenames(FileSystem& fs, const std::vector<std::string>& from,
                      const std::vector<std::string>& to, int& failures) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < kFileCount; ++i) {
    const bool free = !fs.GetAttributes(to[i]);
    const bool moved = free && fs.Rename(from[i], to[i]);
    if (!moved || !fs.GetAttributes(to[i])) ++failures;
  }
  return SecondsSince(start);
}

void BM_RenameRunAgainstBareRenameat2(benchmark::State& state) {
  const BigFolder folder;
  std::vector<std::string> nativeFrom, nativeTo, modelFrom, modelTo;
  for (int i = 0; i < kFileCount; ++i) {
    nativeFrom.push_back(folder.Native(BigFolder::SourceName(i)));
    nativeTo.push_back(folder.Native(BigFolder::TargetName(i)));
    modelFrom.push_back(folder.Model(BigFolder::SourceName(i)));
    modelTo.push_back(folder.Model(BigFolder::TargetName(i)));
  }
  double bare = 0;
  double backend = 0;
  int failures = 0;
  for (auto _ : state) {
    bare += BareRenames(nativeFrom, nativeTo);
    PosixFileSystem fs;  // a fresh index, as at the start of a run
    const double seconds = BackendRenames(fs, modelFrom, modelTo, failures);
    backend += seconds;
    state.SetIterationTime(seconds);
    for (int i = 0; i < kFileCount; ++i) std::rename(nativeTo[i].c_str(), nativeFrom[i].c_str());
  }
  const double runs = static_cast<double>(state.iterations());
  state.counters["bare_us_per_file"] = bare / runs / kFileCount * 1e6;
  state.counters["backend_us_per_file"] = backend / runs / kFileCount * 1e6;
  state.counters["ratio"] = backend / bare;
  state.counters["failures"] = failures;
}
BENCHMARK(BM_RenameRunAgainstBareRenameat2)
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessaly

BENCHMARK_MAIN();
