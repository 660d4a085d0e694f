#include "rich_edit_view.h"

#include <commctrl.h>
#include <richedit.h>

#include <algorithm>
#include <string>

#include "bindings.h"
#include "extra_procedure.h"
#include "rich_positions.h"
#include "rtf_batch.h"
#include "text/utf8.h"

namespace tessaly::win32 {

namespace {

constexpr UINT kRefresh = WM_APP + 1;
constexpr UINT_PTR kPaintTimer = 1;
constexpr ULONGLONG kRefreshEveryMs = 40;

class RichEditBinding {
 public:
  RichEditBinding(HWND view, RichTextBox& box) : view_(view), box_(box) {
    rewrites_ = box_.rewrites() + 1;  // draw in full at the first refresh
  }

  void MarkStale() {
    if (stale_) return;
    stale_ = true;
    PostMessageW(view_, kRefresh, 0, 0);
  }

  // Appends wait while the last refresh is recent; a rewrite never does, so
  // a page that has just come up never shows what stood there before. A
  // refresh costs more as the text grows, so the wait grows with it: the
  // view never takes more than a fifth of a loop's time.
  void RefreshSoon() {
    const ULONGLONG since = GetTickCount64() - lastRefresh_;
    const ULONGLONG wait = std::max(kRefreshEveryMs, 4 * lastCost_);
    if (box_.rewrites() == rewrites_ && since < wait) {
      SetTimer(view_, kPaintTimer, static_cast<UINT>(wait - since), nullptr);
      return;
    }
    Refresh();
  }

  void Refresh() {
    KillTimer(view_, kPaintTimer);
    stale_ = false;
    const ULONGLONG start = GetTickCount64();
    // A margin means long lines run on to the right; without one they
    // wrap. Set only when it changes: the view lays out all its text anew.
    const LPARAM wrapping = box_.rightMargin() != 0 ? 1 : 0;
    if (wrapping != wrapping_) SendMessageW(view_, EM_SETTARGETDEVICE, 0, wrapping);
    wrapping_ = wrapping;
    SendMessageW(view_, WM_SETREDRAW, FALSE, 0);
    if (box_.rewrites() != rewrites_ || box_.text().size() < drawnBytes_) Restart();
    ColourNewRuns();
    AppendRest();
    SendMessageW(view_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(view_, nullptr, TRUE);
    lastRefresh_ = GetTickCount64();
    lastCost_ = lastRefresh_ - start;
  }

 private:
  void Restart() {
    rewrites_ = box_.rewrites();
    SetWindowTextW(view_, L"");
    drawnBytes_ = 0;
    drawnChars_ = 0;
    colouredRuns_ = 0;
    positions_.Clear();
    lastWasCr_ = false;
  }

  void Select(long from, long to) {
    CHARRANGE range{from, to};
    SendMessageW(view_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
  }

  // Colours the runs of the box that were added over text already drawn.
  void ColourNewRuns() {
    const auto& runs = box_.spans();
    for (; colouredRuns_ < runs.size(); ++colouredRuns_) {
      const ColourSpan& run = runs[colouredRuns_];
      if (run.start >= drawnChars_) break;  // drawn with its text
      const std::size_t end = std::min(run.start + run.length, drawnChars_);
      Select(positions_.At(run.start), positions_.At(end));
      CHARFORMAT2W format{};
      format.cbSize = sizeof(format);
      format.dwMask = CFM_COLOR;
      format.crTextColor = RGB(run.colour.red, run.colour.green, run.colour.blue);
      SendMessageW(view_, EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
      if (run.start + run.length > drawnChars_) break;  // the rest is still to draw
    }
  }


  void AppendRest() {
    const std::string& text = box_.text();
    if (drawnBytes_ >= text.size()) return;
    RtfBatch batch(positions_, lastWasCr_);
    const long end = positions_.At(drawnChars_);
    const auto& runs = box_.spans();
    // Runs are in order and apart; walk the new text run by run.
    std::size_t run = colouredRuns_;
    while (run < runs.size() && runs[run].start + runs[run].length <= drawnChars_) ++run;
    while (drawnBytes_ < text.size()) {
      const ColourSpan* next = run < runs.size() ? &runs[run] : nullptr;
      const bool inRun = next != nullptr && next->start <= drawnChars_;
      const std::size_t characters = inRun             ? next->start + next->length - drawnChars_
                                     : next != nullptr ? next->start - drawnChars_
                                                       : SIZE_MAX;
      const std::size_t to = text::ByteAfterChars(box_.text(), drawnBytes_, characters);
      drawnChars_ = batch.Add(text, drawnBytes_, to, drawnChars_, inRun ? &next->colour : nullptr);
      drawnBytes_ = to;
      if (inRun) ++run;
    }
    colouredRuns_ = std::max(colouredRuns_, run);
    Select(end, end);
    const std::string document = batch.Document();
    Stream stream{document, 0};
    EDITSTREAM source{reinterpret_cast<DWORD_PTR>(&stream), 0, &Read};
    SendMessageW(view_, EM_STREAMIN, SF_RTF | SFF_SELECTION, reinterpret_cast<LPARAM>(&source));
  }

  struct Stream {
    const std::string& bytes;
    std::size_t at;
  };
  static DWORD CALLBACK Read(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* given) {
    auto* stream = reinterpret_cast<Stream*>(cookie);
    const std::size_t count =
        std::min<std::size_t>(static_cast<std::size_t>(wanted), stream->bytes.size() - stream->at);
    std::copy_n(stream->bytes.data() + stream->at, count, buffer);
    stream->at += count;
    *given = static_cast<LONG>(count);
    return 0;
  }

  HWND view_;
  RichTextBox& box_;
  bool stale_ = false;
  ULONGLONG lastRefresh_ = 0;
  ULONGLONG lastCost_ = 0;
  LPARAM wrapping_ = -1;
  std::uint64_t rewrites_ = 0;
  std::size_t drawnBytes_ = 0;
  std::size_t drawnChars_ = 0;
  std::size_t colouredRuns_ = 0;
  RichPositions positions_;
  bool lastWasCr_ = false;
};

// The binding's refreshes, and its end with the view.
std::optional<LRESULT> BindingProcedure(RichEditBinding* binding, UINT message, WPARAM wParam) {
  switch (message) {
    case kRefresh:
      binding->RefreshSoon();
      return 0;
    case WM_TIMER:
      if (wParam != kPaintTimer) break;
      binding->Refresh();
      return 0;
    case WM_NCDESTROY:
      delete binding;
      break;
    default:
      break;
  }
  return std::nullopt;
}

}  // namespace

HWND NewRichEditView(HostWindow& host, HWND parent, RichTextBox& box) {
  static const HMODULE library = LoadLibraryW(L"Msftedit.dll");
  (void)library;
  HWND view = host.NewControl(MSFTEDIT_CLASS,
                              ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_VSCROLL |
                                  WS_HSCROLL | WS_BORDER | WS_TABSTOP,
                              parent);
  // RichEdit holds 32,767 characters unless told otherwise.
  SendMessageW(view, EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
  // Nothing here is typed, so nothing is undone: without the undo record
  // every text streamed in is also kept a second time.
  SendMessageW(view, EM_SETUNDOLIMIT, 0, 0);
  auto* binding = new RichEditBinding(view, box);
  AddToProcedure(view, [binding](UINT message, WPARAM wParam, LPARAM) {
    return BindingProcedure(binding, message, wParam);
  });
  Follow(box.changed, host, [binding, view, &box] {
    if (ShownByStyle(view) != box.visible()) ShowWindow(view, box.visible() ? SW_SHOWNA : SW_HIDE);
    binding->MarkStale();
  });
  return view;
}

}  // namespace tessaly::win32
