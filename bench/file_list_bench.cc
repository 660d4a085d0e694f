// The file list at its limit of 32,767 entries, each path checked by the add
// rule before it goes in:
// (a) realistic distinct paths in shuffled order, one by one, against a list
//     that puts every row in place at once (binary search and insert);
// (b) the directory import of a real folder of 32,767 files through the
//     POSIX backend, against the walk alone;
// (c) half the paths listed already, hits and misses taking turns;
// (d) "Remove Selected" with every other row selected.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "files/directory_walk.h"
#include "files/file_list.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"
#include "sample_names.h"
#include "text/text_ops.h"

namespace tessaly {
namespace {

constexpr std::size_t kLargestList = kMaxListEntries;

double SecondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Realistic paths made distinct by a number in front of the extension, in
// shuffled order.
std::vector<std::string> DistinctPaths(std::size_t count) {
  std::vector<std::string> paths = bench::SampleNames(count);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const std::size_t period = paths[i].find_last_of('.');
    paths[i].insert(period == std::string::npos ? paths[i].size() : period,
                    " " + std::to_string(i));
  }
  std::shuffle(paths.begin(), paths.end(), std::mt19937(7));
  return paths;
}

// The baseline: each add looks for a duplicate by binary search and puts the
// row in place at once, as a sorted list did before adds were deferred.
class EagerSortedList {
 public:
  bool Add(const std::string& path) {
    const auto before = [](const std::string& a, const std::string& b) {
      return text::CompareIgnoreCase(a, b) < 0;
    };
    const auto found = std::lower_bound(rows_.begin(), rows_.end(), path, before);
    if (found != rows_.end() && text::CompareIgnoreCase(*found, path) == 0) return false;
    if (rows_.size() >= kLargestList) return false;
    rows_.insert(std::upper_bound(rows_.begin(), rows_.end(), path, before), path);
    return true;
  }
  const std::string& First() const { return rows_.front(); }

 private:
  std::vector<std::string> rows_;
};

void BM_AddRuleOfLargestList(benchmark::State& state) {
  const std::vector<std::string> paths = DistinctPaths(kLargestList);
  double eager = 0;
  double deferred = 0;
  for (auto _ : state) {
    auto start = std::chrono::steady_clock::now();
    EagerSortedList reference;
    for (const std::string& path : paths) reference.Add(path);
    benchmark::DoNotOptimize(reference.First());
    eager += SecondsSince(start);

    start = std::chrono::steady_clock::now();
    ListBox list(/*sorted=*/true);
    for (const std::string& path : paths) AddToFileList(list, path);
    benchmark::DoNotOptimize(list.List(0));  // the first read merges
    const double seconds = SecondsSince(start);
    deferred += seconds;
    state.SetIterationTime(seconds);
    if (list.ListCount() != kLargestList) state.SkipWithError("paths were lost");
  }
  const double runs = static_cast<double>(state.iterations());
  state.counters["eager_ms"] = eager / runs * 1e3;
  state.counters["list_ms"] = deferred / runs * 1e3;
  state.counters["ratio"] = deferred / eager;
}
BENCHMARK(BM_AddRuleOfLargestList)->UseManualTime()->Unit(benchmark::kMillisecond);

// A temporary folder of files, removed at the end.
class BigFolder {
 public:
  explicit BigFolder(const std::vector<std::string>& names) {
    std::string pattern = std::filesystem::temp_directory_path().string() + "/tessaly-list-XXXXXX";
    native_ = mkdtemp(pattern.data()) != nullptr ? pattern : "";
    for (const std::string& name : names) close(creat((native_ + "/" + name).c_str(), 0644));
  }
  ~BigFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(native_, ignored);
  }
  std::string Model() const { return ToModelPath(native_); }

 private:
  std::string native_;
};

void BM_DirectoryImportOfLargestFolder(benchmark::State& state) {
  std::vector<std::string> names;
  for (const std::string& path : DistinctPaths(kLargestList)) {
    names.push_back(path.substr(path.find_last_of('\\') + 1));
  }
  const BigFolder folder(names);
  double walkOnly = 0;
  double import = 0;
  for (auto _ : state) {
    auto start = std::chrono::steady_clock::now();
    {
      PosixFileSystem fs;  // a fresh index, as at a first import
      benchmark::DoNotOptimize(ListFiles(fs, folder.Model(), "*.*", false));
    }
    walkOnly += SecondsSince(start);

    start = std::chrono::steady_clock::now();
    PosixFileSystem fs;
    ListBox list(/*sorted=*/true);
    AddAllToFileList(list, ListFiles(fs, folder.Model(), "*.*", false));
    benchmark::DoNotOptimize(list.List(0));
    const double seconds = SecondsSince(start);
    import += seconds;
    state.SetIterationTime(seconds);
    if (list.ListCount() != kLargestList) state.SkipWithError("files were lost");
  }
  const double runs = static_cast<double>(state.iterations());
  state.counters["walk_ms"] = walkOnly / runs * 1e3;
  state.counters["import_ms"] = import / runs * 1e3;
  state.counters["ratio"] = import / walkOnly;
}
BENCHMARK(BM_DirectoryImportOfLargestFolder)->UseManualTime()->Unit(benchmark::kMillisecond);

// Every other path is listed already, so each look-up that finds one comes
// right after an add that is still waiting to be merged.
void BM_AddRuleWithHitsAndMissesTakingTurns(benchmark::State& state) {
  const std::vector<std::string> paths = DistinctPaths(kLargestList);
  std::vector<std::string> listed;
  for (std::size_t i = 1; i < paths.size(); i += 2) listed.push_back(paths[i]);
  for (auto _ : state) {
    state.PauseTiming();
    ListBox list(/*sorted=*/true);
    AddAllToFileList(list, listed);
    benchmark::DoNotOptimize(list.List(0));
    state.ResumeTiming();
    for (const std::string& path : paths) AddToFileList(list, path);
    benchmark::DoNotOptimize(list.List(0));
    if (list.ListCount() != kLargestList) state.SkipWithError("paths were lost");
  }
}
BENCHMARK(BM_AddRuleWithHitsAndMissesTakingTurns)->Unit(benchmark::kMillisecond);

void BM_RemoveEveryOtherRow(benchmark::State& state) {
  const std::vector<std::string> paths = DistinctPaths(kLargestList);
  for (auto _ : state) {
    state.PauseTiming();
    ListBox list(/*sorted=*/true);
    AddAllToFileList(list, paths);
    for (std::size_t i = 0; i < list.ListCount(); i += 2) list.SetSelected(i, true);
    state.ResumeTiming();
    removeSelected(list);
    if (list.ListCount() != kLargestList / 2) state.SkipWithError("wrong rows removed");
  }
}
BENCHMARK(BM_RemoveEveryOtherRow)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessaly

BENCHMARK_MAIN();
