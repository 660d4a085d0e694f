// The Qt views at the list's limit of 32,767 files: the first page on
// show, the preview of step 3 until it is on show, and the coloured log of
// a whole run. The last two are set against the same step driven without
// a window in the same run, so the ratio is what the views add.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <memory>
#include <string>

#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "qt_ui.h"
#include "sample_names.h"
#include "wizard/tessaly_form.h"

namespace tessaly {
namespace {

constexpr std::size_t kLargestList = 32767;

const std::vector<std::string>& LargestList() {
  static const std::vector<std::string> paths = bench::NumberedSampleNames(kLargestList);
  return paths;
}

void Settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

// Settles, then waits while the window holds its painting back (it paints
// at most every few tens of milliseconds while lines come), so the time
// counted ends with the last lines on show.
void SettleUntilPainted(QWidget* view) {
  Settle();
  while (!view->window()->updatesEnabled() || !view->updatesEnabled()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  Settle();
}

// A wizard over memory backends with 32,767 files listed, on step 2,
// drawn by the Qt views (`UiType` qt::QtUi) or by no one (ScriptedUi).
template <typename UiType>
struct World {
  World() {
    for (const std::string& path : LargestList()) files.AddFile(path);
    form = &memory.Start();
    DropData drop;
    drop.files = LargestList();
    form->AddDroppedFiles(drop);
    form->lblStep[2].Click();
    Settle();
  }
  ~World() {
    if constexpr (std::is_same_v<UiType, qt::QtUi>) delete memory.ui.wizardWindow();
    Settle();
  }
  // The text view of `name` on the wizard window.
  QPlainTextEdit* View(const char* name) {
    return memory.ui.wizardWindow()->template findChild<QPlainTextEdit*>(QString::fromLatin1(name));
  }

  MemoryFileSystem files;
  BasicMemoryWorld<UiType> memory{files};
  fTessaly* form = nullptr;
};

// From the start of the wizard until its first page is on show.
void BM_FirstPageOnShow(benchmark::State& state) {
  for (auto _ : state) {
    MemoryFileSystem files;
    BasicMemoryWorld<qt::QtUi> world(files);
    world.Start();
    Settle();
    if (!world.ui.wizardWindow()->isVisible()) state.SkipWithError("no window");
    state.PauseTiming();
    delete world.ui.wizardWindow();
    Settle();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_FirstPageOnShow)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_PreviewWithoutWindow(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto world = std::make_unique<World<ScriptedUi>>();
    state.ResumeTiming();
    world->form->cmdNext_Click();
    if (!world->form->tOutput.visible()) state.SkipWithError("no preview");
    state.PauseTiming();
    world.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_PreviewWithoutWindow)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_PreviewShownInWindow(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto world = std::make_unique<World<qt::QtUi>>();
    state.ResumeTiming();
    world->form->cmdNext_Click();
    QPlainTextEdit* preview = world->View("tOutput");
    SettleUntilPainted(preview);
    if (!preview->isVisible() || preview->blockCount() < static_cast<int>(kLargestList) + 1) {
      state.SkipWithError("the preview is not on show in full");
    }
    state.PauseTiming();
    world.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_PreviewShownInWindow)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_RunAndLogWithoutWindow(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto world = std::make_unique<World<ScriptedUi>>();
    world->form->cmdNext_Click();
    state.ResumeTiming();
    world->form->cmdNext_Click();
    if (world->form->tLog.spans().size() != kLargestList) state.SkipWithError("lines were lost");
    state.PauseTiming();
    world.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_RunAndLogWithoutWindow)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_RunAndColouredLogInWindow(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto world = std::make_unique<World<qt::QtUi>>();
    world->form->cmdNext_Click();
    Settle();
    state.ResumeTiming();
    world->form->cmdNext_Click();
    QPlainTextEdit* log = world->View("tLog");
    SettleUntilPainted(log);
    if (!log->isVisible() || log->blockCount() < static_cast<int>(kLargestList) + 5) {
      state.SkipWithError("the log is not on show in full");
    }
    state.PauseTiming();
    world.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_RunAndColouredLogInWindow)->Unit(benchmark::kMillisecond)->Iterations(3);

// The list page on show while 32,767 dropped files arrive.
void BM_DropOfLargestListOnShow(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto world = std::make_unique<World<qt::QtUi>>();  // full already: start over empty
    world->form->cmdClear_Click();
    world->form->lblStep[1].Click();
    Settle();
    DropData drop;
    drop.files = LargestList();
    state.ResumeTiming();
    world->form->AddDroppedFiles(drop);
    Settle();
    state.PauseTiming();
    world.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_DropOfLargestListOnShow)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
}  // namespace tessaly

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
