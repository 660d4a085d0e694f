// The Win32 views at the list's limit of 32,767 files, as qt_views_bench
// measures the Qt ones: the first page until it is on show, the preview of
// step 3, the coloured log of a whole run, and a drop of the whole list on
// the list page. The preview and the run are also driven without a window
// in the same run, so the ratio is what the views add. Prints the median
// of three runs of each, in milliseconds (bench/windows_window.sh reads it).
#include "windows_h.h"

#include <commctrl.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "sample_names.h"
#include "win32_ui.h"

namespace tessaly::win32 {
namespace {

// The list's limit, unless the command line asks for fewer.
std::size_t kLargestList = 32767;

const std::vector<std::string>& LargestList() {
  static const std::vector<std::string> paths = bench::NumberedSampleNames(kLargestList);
  return paths;
}

// What the message queue holds now, and the refreshes it posts: the views
// draw on show.
void Settle() {
  MessagePump pump;
  for (int round = 0; round < 50; ++round) {
    pump.RunWaiting();
    if (MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, QS_ALLINPUT) == WAIT_TIMEOUT) return;
  }
}

// A wizard over memory backends, drawn by the Win32 views (Win32Ui) or by
// no one (ScriptedUi); with the largest list on step 2 unless `empty`.
template <typename UiType>
struct World {
  explicit World(bool empty = false) {
    for (const std::string& path : LargestList()) files.AddFile(path);
    form = &memory.Start();
    if (empty) return;
    DropData drop;
    drop.files = LargestList();
    form->AddDroppedFiles(drop);
    form->lblStep[2].Click();
    Settle();
  }
  ~World() {
    if constexpr (std::is_same_v<UiType, Win32Ui>) memory.ui.DropViews();
    Settle();
  }
  // Lines in the rich text view `name`; -1 when it is not on show.
  int LinesOnShow(const char* name) {
    if constexpr (std::is_same_v<UiType, Win32Ui>) {
      const HWND view = memory.ui.wizardWindow()->Named(name);
      if (!IsWindowVisible(view)) return -1;
      return static_cast<int>(SendMessageW(view, EM_GETLINECOUNT, 0, 0));
    }
    return 0;
  }

  MemoryFileSystem files;
  BasicMemoryWorld<UiType> memory{files};
  fTessaly* form = nullptr;
};

// A wizard not yet started; its window goes, untimed, with it.
struct Unstarted {
  ~Unstarted() {
    world.ui.DropViews();
    Settle();
  }
  MemoryFileSystem files;
  BasicMemoryWorld<Win32Ui> world{files};
};

using Clock = std::chrono::steady_clock;

// The median of three timings of `timed`, each after a fresh `prepare`.
template <typename Prepared>
double Median(std::function<std::unique_ptr<Prepared>()> prepare, std::function<bool(Prepared&)> timed) {
  std::vector<double> times;
  for (int i = 0; i < 3; ++i) {
    std::unique_ptr<Prepared> world = prepare();
    const Clock::time_point start = Clock::now();
    const bool whole = timed(*world);
    times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    if (!whole) std::fprintf(stderr, "not on show in full\n");
  }
  std::sort(times.begin(), times.end());
  return times[1];
}

// Lets the views work until `done` holds, waiting for their timers.
bool SettleUntil(const std::function<bool()>& done) {
  MessagePump pump;
  for (int round = 0; round < 100'000; ++round) {
    pump.RunWaiting();
    if (done()) return true;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
  }
  return false;
}

template <typename UiType>
std::unique_ptr<World<UiType>> AtStep2() {
  return std::make_unique<World<UiType>>();
}

template <typename UiType>
std::unique_ptr<World<UiType>> AtStep3() {
  auto world = std::make_unique<World<UiType>>();
  world->form->cmdNext_Click();
  Settle();
  return world;
}

void Report(const char* figure, double milliseconds) {
  std::printf("%-24s %10.1f ms\n", figure, milliseconds);
  std::fflush(stdout);
}

int Run() {
  const int kLogLines = static_cast<int>(kLargestList) + 5;
  Report("first_page", Median<Unstarted>([] { return std::make_unique<Unstarted>(); }, [](Unstarted& w) {
           w.world.Start();
           Settle();
           return IsWindowVisible(w.world.ui.wizardWindow()->hwnd()) != FALSE;
         }));
  Report("preview_without_window", Median<World<ScriptedUi>>(&AtStep2<ScriptedUi>, [](World<ScriptedUi>& w) {
           w.form->cmdNext_Click();
           return w.form->tOutput.visible();
         }));
  Report("preview_in_window", Median<World<Win32Ui>>(&AtStep2<Win32Ui>, [](World<Win32Ui>& w) {
           w.form->cmdNext_Click();
           return SettleUntil([&w] { return w.LinesOnShow("tOutput") >= static_cast<int>(kLargestList) + 1; });
         }));
  Report("run_log_without_window", Median<World<ScriptedUi>>(&AtStep3<ScriptedUi>, [](World<ScriptedUi>& w) {
           w.form->cmdNext_Click();
           return w.form->tLog.spans().size() == kLargestList;
         }));
  Report("run_log_in_window", Median<World<Win32Ui>>(&AtStep3<Win32Ui>, [kLogLines](World<Win32Ui>& w) {
           w.form->cmdNext_Click();
           return SettleUntil([&w, kLogLines] { return w.LinesOnShow("tLog") >= kLogLines; });
         }));
  Report("drop_on_list_page", Median<World<Win32Ui>>(
                                  [] {
                                    auto world = std::make_unique<World<Win32Ui>>(true);
                                    world->form->lblStep[1].Click();
                                    Settle();
                                    return world;
                                  },
                                  [](World<Win32Ui>& w) {
                                    DropData drop;
                                    drop.files = LargestList();
                                    w.form->AddDroppedFiles(drop);
                                    Settle();
                                    return w.form->lstFiles.ListCount() == kLargestList;
                                  }));
  return 0;
}

}  // namespace
}  // namespace tessaly::win32

int main(int argc, char** argv) {
  if (argc > 1) tessaly::win32::kLargestList = std::stoul(argv[1]);
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  return tessaly::win32::Run();
}
