// The wizard's list at its largest: 32,767 paths through the command line
// and through the directory import, each add checked for duplicates.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"
#include "sample_names.h"

namespace tessaly {
namespace {

constexpr std::size_t kLargestList = 32767;

void BM_CommandLineOfLargestList(benchmark::State& state) {
  std::vector<std::string> paths = bench::SampleNames(kLargestList);
  // The mix repeats names; a number behind each makes every path distinct.
  for (std::size_t i = 0; i < paths.size(); ++i) paths[i] += "." + std::to_string(i);
  std::shuffle(paths.begin(), paths.end(), std::mt19937(7));
  MemoryFileSystem files;
  std::string commandLine;
  for (const std::string& path : paths) {
    files.AddFile(path);
    if (!commandLine.empty()) commandLine += ';';
    commandLine += path;
  }
  commandLine += " /hide";
  for (auto _ : state) {
    MemoryWorld world(files);
    fTessaly& wizard = world.Start(commandLine);
    benchmark::DoNotOptimize(wizard.lstFiles.List(0));
    if (wizard.lstFiles.ListCount() != kLargestList) state.SkipWithError("paths were lost");
  }
}
BENCHMARK(BM_CommandLineOfLargestList)->Unit(benchmark::kMillisecond);

void BM_DirectoryImportOfLargestFolder(benchmark::State& state) {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / "tessaly-wizard-bench";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  for (std::size_t i = 0; i < kLargestList; ++i) {
    std::ofstream(folder / ("Holiday Photo " + std::to_string(i * 7919 % 100000) + ".JPG"));
  }
  PosixFileSystem files;
  const std::string modelFolder = ToModelPath(folder.string());
  for (auto _ : state) {
    MemoryWorld world(files);
    fTessaly& wizard = world.Start("");
    world.ui.QueueFolder(modelFolder);
    wizard.cmdAddDirectory_Click();
    if (wizard.lstFiles.ListCount() != kLargestList) state.SkipWithError("files were lost");
  }
  std::filesystem::remove_all(folder);
}
BENCHMARK(BM_DirectoryImportOfLargestFolder)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessaly

BENCHMARK_MAIN();
