// ConvertName throughput on a realistic mix of names, in three settings:
// the defaults; every text-changing box ticked with six placements; and
// that with the advanced replace list and the unwanted-formatting list.
#include <benchmark/benchmark.h>

#include "conversion/name_converter.h"
#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/memory_file_system.h"
#include "sample_names.h"

namespace tessaly {
namespace {

ConversionOptions Defaults() { return ConversionOptions(); }

ConversionOptions EveryBoxSixPlacements() {
  ConversionOptions options;
  options.cboBatch = {"Document Name", " - ", "3 Digit Serial Number", "Split(-,1)",
                      "mmddyy (date)", "extension", "", ""};
  for (CheckState* box : {&options.chkRemoveNumbers, &options.chkShortExtension,
                          &options.chkExtra, &options.chkRemoveu, &options.chkRemoveDoubleSpace,
                          &options.chkCapitalize, &options.chkLowercase, &options.chkFixSpacing}) {
    *box = kChecked;
  }
  return options;
}

ConversionOptions WithBothLists() {
  ConversionOptions options = EveryBoxSixPlacements();
  options.cboBatch[6] = "(Advanced)";
  options.chkFormatting = kChecked;
  options.ReplaceList = {
      {"IMG_", "Photo ", true},         {"Track #", "#", true},
      {"(#)", "", true},                {"v#", "version #", true},
      {"final", "FINAL", true},         {"[#]", "", true},
      {"budget", "Budget", true},       {".part", "", true},
      {"Reports", "Reports", true},     {"  ", " ", true},
  };
  for (const char* row : {"Copy Of", "Copy (##) Of", "Shortcut To", "## -", "-#",
                          "(Radio Edit)", "- -"}) {
    options.FormattingList.push_back({row, true});
  }
  return options;
}

void RunConversions(benchmark::State& state, ConversionOptions options) {
  const std::vector<std::string> names = bench::SampleNames(4096);
  FixedClock clock(CivilDate{2026, 11, 18});
  FixedLocale locale;
  MemoryFileSystem fileSystem;
  const NameConverter converter({clock, locale, fileSystem, nullptr});
  std::size_t next = 0;
  for (auto _ : state) {
    if (next == names.size()) {
      next = 0;
      options.serial = 0;
    }
    benchmark::DoNotOptimize(converter.ConvertName(options, names[next++]));
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
  state.counters["names/s"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void BM_ConvertName_Defaults(benchmark::State& state) { RunConversions(state, Defaults()); }
void BM_ConvertName_EveryBox(benchmark::State& state) {
  RunConversions(state, EveryBoxSixPlacements());
}
void BM_ConvertName_EveryBoxAndLists(benchmark::State& state) {
  RunConversions(state, WithBothLists());
}

BENCHMARK(BM_ConvertName_Defaults);
BENCHMARK(BM_ConvertName_EveryBox);
BENCHMARK(BM_ConvertName_EveryBoxAndLists);

}  // namespace
}  // namespace tessaly

BENCHMARK_MAIN();
