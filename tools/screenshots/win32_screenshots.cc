// Writes a PNG of every page and dialog of the Windows window into the
// folder given, for a person to look at: the five steps (the last with its
// coloured log), the two list dialogs, the progress window and the
// overwrite question. Needs a real display (Wine on Xvfb): the pictures are
// taken from the screen, frames and all. The wizard runs over files in
// memory, so the pictures are the same on every machine but for the fonts.
#include "windows_h.h"

#include <commctrl.h>
#include <ole2.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "png_file.h"
#include "win32_ui.h"

namespace tessaly::win32 {
namespace {

std::filesystem::path folder;

// Runs the waiting messages, the refreshes they post and the timers that
// are due, until nothing more comes for a while.
void Settle() {
  MessagePump pump;
  for (int round = 0; round < 100; ++round) {
    pump.RunWaiting();
    if (MsgWaitForMultipleObjects(0, nullptr, FALSE, 150, QS_ALLINPUT) == WAIT_TIMEOUT) return;
  }
}

// The window as the screen shows it, frame included.
void Save(HWND window, const char* name) {
  if (window == nullptr) {
    std::cerr << "nothing on show for " << name << "\n";
    return;
  }
  SetForegroundWindow(window);
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
  Settle();
  RECT box{};
  GetWindowRect(window, &box);
  const int width = box.right - box.left;
  const int height = box.bottom - box.top;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // top row first
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ old = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, box.left, box.top, SRCCOPY | CAPTUREBLT);
  GdiFlush();
  std::vector<std::uint8_t> rgb;
  rgb.reserve(static_cast<std::size_t>(width) * height * 3);
  const auto* pixel = static_cast<const std::uint8_t*>(bits);
  for (int i = 0; i < width * height; ++i, pixel += 4) rgb.insert(rgb.end(), {pixel[2], pixel[1], pixel[0]});
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  const std::filesystem::path file = folder / (std::string(name) + ".png");
  if (!WritePng(file, width, height, rgb)) std::cerr << "cannot write " << file.string() << "\n";
}

// Polls on a thread timer, which also fires inside modal loops, until
// `ready` gives a window: saves it as `name`, then lets `answer` close it.
std::function<void()> poll;

void CALLBACK OnPoll(HWND, UINT, UINT_PTR, DWORD) {
  if (poll) poll();
}

void WhenOpen(std::function<HWND()> ready, const char* name, std::function<void(HWND)> answer) {
  const UINT_PTR timer = SetTimer(nullptr, 0, 50, &OnPoll);
  const ULONGLONG deadline = GetTickCount64() + 10'000;
  poll = [=] {
    const HWND window = ready();
    if (window == nullptr && GetTickCount64() < deadline) return;
    KillTimer(nullptr, timer);
    const std::string what = name;
    const auto close = answer;
    poll = nullptr;  // this lambda and its copies are gone from here on
    if (window == nullptr) {
      std::cerr << "nothing opened for " << what << "\n";
      return;
    }
    Save(window, what.c_str());
    close(window);
  };
}

// A Win32Ui that saves the progress window once, the first time it shows.
class PicturingUi : public Win32Ui {
 public:
  void LetPendingEventsRun() override {
    Win32Ui::LetPendingEventsRun();
    if (!progressSaved_ && progressWindow() != nullptr && IsWindowVisible(progressWindow()->hwnd())) {
      progressSaved_ = true;
      Save(progressWindow()->hwnd(), "progress");
    }
  }

 private:
  bool progressSaved_ = false;
};

int Run() {
  MemoryFileSystem files;
  const char* names[] = {"Beach  Day.JPG", "beach_day_2.JPG", "IMG_0042.JPG", "Grand Café.PNG",
                         "notes (1).TXT", "README", "holiday.jpg"};
  DropData drop;
  for (const char* name : names) {
    const std::string path = std::string("C:\\Users\\Ann\\Pictures\\") + name;
    files.SetContents(path, name);
    drop.files.push_back(path);
  }
  BasicMemoryWorld<PicturingUi> world(files);
  fTessaly& form = world.Start();
  const HWND wizard = world.ui.wizardWindow()->hwnd();
  Settle();
  Save(wizard, "step0-welcome");
  form.lblStep[1].Click();
  form.AddDroppedFiles(drop);
  Settle();
  Save(wizard, "step1-files");
  form.lblStep[2].Click();
  form.chkCapitalize.SetValue(1);
  form.chkRemoveu.SetValue(1);
  Settle();
  Save(wizard, "step2-settings");
  const auto modal = [&world]() -> HWND {
    DialogWindow* dialog = world.ui.modalWindow();
    return dialog != nullptr && IsWindowVisible(dialog->hwnd()) ? dialog->hwnd() : nullptr;
  };
  const auto close = [](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); };
  WhenOpen(modal, "dialog-unwanted-formatting", close);
  form.cmdUnwantedFormat.Click();
  Settle();
  // Picking "(Advanced)" in the With box opens its dialog.
  WhenOpen(modal, "dialog-advanced-replace", close);
  form.cboBatch[7].SetText("(Advanced)");
  Settle();
  form.cboBatch[6].SetText("");
  form.cboBatch[7].SetText("");
  form.lblStep[3].Click();
  Settle();
  Save(wizard, "step3-review");
  // One name taken, so the run asks; answered No.
  files.SetContents("C:\\Users\\Ann\\Pictures\\Beach Day 2.jpg", "taken");
  WhenOpen([] { return FindWindowW(L"#32770", L"Confirm Overwrite"); }, "question-overwrite",
           [](HWND box) { PostMessageW(box, WM_COMMAND, IDNO, 0); });
  form.cmdNext.Click();
  Settle();
  Save(wizard, "step4-log");
  world.ui.DropViews();
  return 0;
}

}  // namespace
}  // namespace tessaly::win32

int wmain(int argc, wchar_t** argv) {
  if (argc != 2) {
    std::cerr << "usage: win32_screenshots FOLDER\n";
    return 2;
  }
  OleInitialize(nullptr);
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  tessaly::win32::folder = argv[1];
  std::filesystem::create_directories(tessaly::win32::folder);
  return tessaly::win32::Run();
}
