// A conversion pass over the largest list the wizard takes, with both
// lists active: once with the lists read through the dialogs from the
// embedded registry for every name, once with the lists given in memory.
// The stored pass should cost at most 1.5 times the in-memory one.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "conversion/name_converter.h"
#include "lists/stored_lists.h"
#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/scripted_ui.h"
#include "platform/posix/sqlite_registry.h"
#include "sample_names.h"

namespace tessaly {
namespace {

constexpr std::size_t kLargestList = 32767;

constexpr std::string_view kReplaceRows =
    "IMG_ >> Photo %%1|Track # >> #%%1|(#) >> %%1|v# >> version #%%1|final >> FINAL%%1|"
    "[#] >> %%1|budget >> Budget%%1|.part >> %%1|Reports >> Reports%%1|   >>  %%1|";
constexpr std::string_view kFormattingRows =
    "Copy Of%%1|Copy (##) Of%%1|Shortcut To%%1|## -%%1|-#%%1|(Radio Edit)%%1|- -%%1|";

ConversionOptions BothListsActive() {
  ConversionOptions options;
  options.cboBatch[6] = "(Advanced)";
  options.chkFormatting = kChecked;
  return options;
}

// Both lists stored in a fresh embedded registry of their own.
struct StoredWorld {
  explicit StoredWorld(const char* folderName)
      : registry(RegistryLocationIn(std::filesystem::temp_directory_path() / folderName)) {
    store.SaveProgramSetting("Settings", "ReplaceList",
                             SettingValue::FromText(std::string(kReplaceRows)));
    store.SaveProgramSetting("Settings", "FormattingList",
                             SettingValue::FromText(std::string(kFormattingRows)));
  }
  SqliteRegistry registry;
  SettingsStore store{registry};
  ScriptedUi ui;
  StoredLists lists{store, ui};
};

void ConvertAll(benchmark::State& state, ListSource* source, ConversionOptions options) {
  const std::vector<std::string> names = bench::SampleNames(kLargestList);
  FixedClock clock(CivilDate{2026, 11, 18});
  FixedLocale locale;
  MemoryFileSystem fileSystem;
  const NameConverter converter({clock, locale, fileSystem, source});
  for (auto _ : state) {
    options.serial = 0;
    for (const std::string& name : names) {
      benchmark::DoNotOptimize(converter.ConvertName(options, name));
    }
  }
  state.counters["per_name"] = benchmark::Counter(
      static_cast<double>(names.size()),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_PassWithListsInMemory(benchmark::State& state) {
  StoredWorld world("tessaly-bench-lists-memory");
  ConversionOptions options = BothListsActive();
  world.lists.LoadReplaceList(options.ReplaceList);  // the same rows, read once
  world.lists.LoadFormattingList(options.FormattingList);
  ConvertAll(state, nullptr, options);
}

void BM_PassWithStoredLists(benchmark::State& state) {
  StoredWorld world("tessaly-bench-lists-stored");
  ConvertAll(state, &world.lists, BothListsActive());
}

BENCHMARK(BM_PassWithListsInMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PassWithStoredLists)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessaly

BENCHMARK_MAIN();
