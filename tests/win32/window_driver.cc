#include "window_driver.h"

#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>
#include <shlobj.h>

#include <cstring>
#include <cwchar>
#include <memory>

#include <gtest/gtest.h>

#include "message_pump.h"

namespace tessaly::win32::testing {

MessageAnswer WatchingUi::MessageBox(std::string_view text, MessageButtons buttons,
                                     std::string_view title) {
  asked.push_back(std::string(title) + ": " + std::string(text));
  if (buttons == MessageButtons::kOk) return MessageAnswer::kOk;
  if (answers.empty()) return MessageAnswer::kCancel;
  const MessageAnswer answer = answers.front();
  answers.erase(answers.begin());
  return answer;
}

void Settle() {
  MessagePump pump;
  // Refreshes wait a few tens of milliseconds while changes keep coming.
  for (int round = 0; round < 200; ++round) {
    pump.RunWaiting();
    if (MsgWaitForMultipleObjects(0, nullptr, FALSE, 80, QS_ALLINPUT) == WAIT_TIMEOUT) return;
  }
}

namespace {

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

HWND EditOf(HWND box) {
  if (ClassOf(box) != WC_COMBOBOXW) return box;
  COMBOBOXINFO info{};
  info.cbSize = sizeof(info);
  GetComboBoxInfo(box, &info);
  return info.hwndItem;
}

}  // namespace

void Click(HWND control) {
  ASSERT_NE(control, nullptr);
  if (ClassOf(control) == WC_STATICW) {
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, 0);
    SendMessageW(control, WM_LBUTTONUP, 0, 0);
  } else {
    SendMessageW(control, BM_CLICK, 0, 0);
  }
  Settle();
}

void PressKey(HWND window, UINT key) {
  PostMessageW(window, WM_KEYDOWN, key, 1);
  PostMessageW(window, WM_KEYUP, key, 0xC0000001);
  Settle();
}

void TypeOver(HWND box, const std::wstring& text) {
  const HWND edit = EditOf(box);
  SendMessageW(edit, EM_SETSEL, 0, -1);
  SendMessageW(edit, WM_CHAR, VK_BACK, 1);
  for (const wchar_t c : text) SendMessageW(edit, WM_CHAR, c, 1);
  Settle();
}

void DropFiles(HWND target, const std::vector<std::wstring>& paths, POINT where) {
  std::wstring list;
  for (const std::wstring& path : paths) list += path + L'\0';
  list += L'\0';
  const SIZE_T bytes = sizeof(DROPFILES) + list.size() * sizeof(wchar_t);
  HGLOBAL memory = GlobalAlloc(GHND, bytes);
  auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
  drop->pFiles = sizeof(DROPFILES);
  drop->pt = where;
  drop->fWide = TRUE;
  std::memcpy(reinterpret_cast<char*>(drop) + sizeof(DROPFILES), list.data(), list.size() * sizeof(wchar_t));
  GlobalUnlock(memory);
  PostMessageW(target, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
  Settle();
}

POINT CentreIn(HWND control, HWND target) {
  RECT box;
  GetWindowRect(control, &box);
  POINT centre{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
  ScreenToClient(target, &centre);
  return centre;
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

std::vector<std::wstring> Rows(HWND listView) {
  std::vector<std::wstring> rows;
  const auto count = static_cast<int>(SendMessageW(listView, LVM_GETITEMCOUNT, 0, 0));
  for (int row = 0; row < count; ++row) {
    wchar_t text[1024] = {};
    LVITEMW item{};
    item.pszText = text;
    item.cchTextMax = 1024;
    SendMessageW(listView, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    rows.emplace_back(text);
  }
  return rows;
}

bool RowChecked(HWND listView, int row) {
  const auto state = static_cast<UINT>(SendMessageW(listView, LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK));
  return (state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
}

void SelectRow(HWND listView, int row) {
  LVITEMW item{};
  item.state = LVIS_SELECTED | LVIS_FOCUSED;
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  SendMessageW(listView, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
  Settle();
}

void WatchingUi::LetPendingEventsRun() {
  Settle();
  if (onPendingEvents) onPendingEvents();
}

std::wstring ViewText(HWND view) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(view, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      SendMessageW(view, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

// The colour `text` is drawn in, read off the view's own drawing: of the
// pixels where its first row shows, the one farthest from the background,
// as the full strokes of the letters are.
COLORREF ColourOf(HWND view, const std::wstring& text) {
  const std::size_t at = ViewText(view).find(text);
  if (at == std::wstring::npos) {
    ADD_FAILURE() << "the text is not in the view";
    return CLR_INVALID;
  }
  SendMessageW(view, EM_SETSEL, at, at);
  SendMessageW(view, EM_SCROLLCARET, 0, 0);
  const auto from = static_cast<DWORD>(SendMessageW(view, EM_POSFROMCHAR, at, 0));
  const auto to = static_cast<DWORD>(SendMessageW(view, EM_POSFROMCHAR, at + text.size(), 0));
  RECT client;
  GetClientRect(view, &client);
  HDC screen = GetDC(view);
  HDC dc = CreateCompatibleDC(screen);
  BITMAPINFO format{};
  format.bmiHeader = {sizeof(BITMAPINFOHEADER), client.right, -client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  HBITMAP bitmap = CreateDIBSection(dc, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ old = SelectObject(dc, bitmap);
  SendMessageW(view, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
  TEXTMETRICW metrics{};
  const HGDIOBJ oldFont = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(view, WM_GETFONT, 0, 0)));
  GetTextMetricsW(dc, &metrics);
  SelectObject(dc, oldFont);
  const COLORREF background = GetSysColor(COLOR_WINDOW);
  const int top = static_cast<short>(HIWORD(from));
  const int left = static_cast<short>(LOWORD(from));
  const int right = HIWORD(to) == HIWORD(from) ? static_cast<short>(LOWORD(to)) : client.right;
  COLORREF farthest = background;
  int distance = 0;
  const auto* pixels = static_cast<const DWORD*>(bits);
  for (int y = std::max(top, 0); y < std::min<int>(top + metrics.tmHeight, client.bottom); ++y) {
    for (int x = std::max(left, 0); x < std::min<int>(right, client.right); ++x) {
      const DWORD pixel = pixels[y * client.right + x];
      const COLORREF colour = RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
      const int apart = std::abs(GetRValue(colour) - GetRValue(background)) +
                        std::abs(GetGValue(colour) - GetGValue(background)) +
                        std::abs(GetBValue(colour) - GetBValue(background));
      if (apart > distance) {
        distance = apart;
        farthest = colour;
      }
    }
  }
  SelectObject(dc, old);
  DeleteObject(bitmap);
  DeleteDC(dc);
  ReleaseDC(view, screen);
  return farthest;
}

namespace {

std::function<void()> modalCheck;

void CALLBACK OnModalTimer(HWND, UINT, UINT_PTR timer, DWORD) {
  if (modalCheck) modalCheck();
  (void)timer;
}

}  // namespace

namespace {

// Polls every `everyMs` for up to ten seconds, since a modal loop starts
// only after the call that opens it, then runs `action` on what `find`
// found, or fails the test naming `what`.
template <typename Found>
void WhenFound(UINT everyMs, std::function<Found*()> find, std::function<void(Found&)> action,
               const char* what) {
  const ULONGLONG deadline = GetTickCount64() + 10'000;
  const UINT_PTR timer = SetTimer(nullptr, 0, everyMs, &OnModalTimer);
  modalCheck = [find, action, deadline, timer, what] {
    Found* found = find();
    if (found == nullptr && GetTickCount64() < deadline) return;
    KillTimer(nullptr, timer);
    const auto run = action;
    modalCheck = nullptr;
    if (found == nullptr) {
      ADD_FAILURE() << "no " << what << " opened";
      return;
    }
    run(*found);
  };
}

BOOL CALLBACK KeepSystemDialog(HWND window, LPARAM found) {
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  if (std::wcscmp(name, L"#32770") != 0 || !IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

void WhenModalOpens(WatchingUi& ui, std::function<void(DialogWindow&)> action) {
  WhenFound<DialogWindow>(10, [&ui] { return ui.modalWindow(); }, std::move(action), "modal dialog");
}

void WhenSystemDialogOpens(std::function<void(HWND)> action) {
  // The dialog's handle stands in a holder of its own for the poll.
  auto dialog = std::make_shared<HWND>(nullptr);
  WhenFound<HWND>(
      50,
      [dialog]() -> HWND* {
        *dialog = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), &KeepSystemDialog, reinterpret_cast<LPARAM>(dialog.get()));
        return *dialog != nullptr ? dialog.get() : nullptr;
      },
      [action](HWND& found) { action(found); }, "system dialog");
}

}  // namespace tessaly::win32::testing
