#include "realise.h"

#include <commctrl.h>

#include <algorithm>
#include <memory>

#include "bindings.h"
#include "extra_procedure.h"
#include "list_view.h"
#include "platform/win32/utf16.h"
#include "text_view.h"

namespace tessaly::win32 {

namespace {

using layout::Kind;
using layout::Look;

template <typename T>
T& ModelOf(const layout::Item& item) {
  return *std::get<T*>(item.model);
}

}  // namespace

Node Realiser::Realise(const layout::Item& item, HWND parent) {
  Node node;
  node.item = &item;
  if (item.kind == Kind::kProgress) {
    node.window = MakeProgress(item, parent, node);
    return node;
  }
  node.window = MakeWindow(item, parent);
  if (node.window != nullptr) Dress(item, node.window);
  if (Defers(item)) {
    deferred_.push_back({&item, node.window});
    return node;
  }
  const HWND inside = item.kind == Kind::kPanel ? node.window : parent;
  const bool sheet = item.kind == Kind::kPanel && item.look == Look::kSheet;
  sheets_ += sheet ? 1 : 0;
  for (const layout::Item& child : item.children) node.children.push_back(Realise(child, inside));
  sheets_ -= sheet ? 1 : 0;
  return node;
}

bool Realiser::Defers(const layout::Item& item) const {
  const auto* shownBy = std::get_if<Label*>(&item.model);
  return item.kind == Kind::kPanel && shownBy != nullptr && !(*shownBy)->visible() &&
         std::find(deferrable_.begin(), deferrable_.end(), item.name) != deferrable_.end();
}

void Realiser::RealiseContents(const Deferred& page, Node& node) {
  for (const layout::Item& child : page.item->children) node.children.push_back(Realise(child, page.panel));
  PlaceCaptionsBeforeBuddies();
}

HWND Realiser::MakeWindow(const layout::Item& item, HWND parent) {
  switch (item.kind) {
    case Kind::kBox:
    case Kind::kSpace:
    case Kind::kStretch:
      return nullptr;
    case Kind::kFrame: {
      if (const auto* title = std::get_if<Label*>(&item.model)) {
        return NewFrame(host_, parent, **title, item.keys);
      }
      HWND frame = host_.NewControl(WC_BUTTONW, BS_GROUPBOX, parent);
      SetWindowTextW(frame, Widen(layout::WithMnemonic(item.text, item.keys)).c_str());
      return frame;
    }
    case Kind::kPanel: {
      HWND panel = host_.NewPanel(parent);
      if (const auto* shownBy = std::get_if<Label*>(&item.model)) {
        BindEnabledVisible(host_, **shownBy, panel);
      }
      return panel;
    }
    case Kind::kText:
    case Kind::kPathText:
    case Kind::kCaption:
      return MakeText(item, parent);
    case Kind::kButton:
      return NewButton(host_, parent, ModelOf<CommandButton>(item), item.keys);
    case Kind::kCheckBox:
      return NewCheckBox(host_, parent, ModelOf<CheckBox>(item), item.keys);
    case Kind::kOption:
      return NewOption(host_, parent, ModelOf<OptionButton>(item), item.keys);
    case Kind::kComboBox:
      return NewComboBox(host_, parent, ModelOf<ComboBox>(item));
    case Kind::kTextBox:
      return NewLineEdit(host_, parent, ModelOf<TextBox>(item));
    case Kind::kExample:
      return NewReadOnlyText(host_, parent, ModelOf<TextBox>(item));
    case Kind::kFileList:
      return NewListView(host_, parent, ModelOf<ListBox>(item), ListKind::kSelectable, item.shownPath);
    case Kind::kCheckList:
      return NewListView(host_, parent, ModelOf<ListBox>(item), ListKind::kCheckable);
    case Kind::kRichText:
      return NewTextView(host_, parent, ModelOf<RichTextBox>(item));
    case Kind::kLine:
      return host_.NewControl(WC_STATICW, SS_ETCHEDHORZ, parent);
    case Kind::kProgress:
      return nullptr;
  }
  return nullptr;
}

HWND Realiser::MakeText(const layout::Item& item, HWND parent) {
  HWND text = nullptr;
  if (item.kind == Kind::kPathText) {
    text = NewPathLabel(host_, parent, ModelOf<Label>(item), item.shownPath);
  } else if (item.kind == Kind::kCaption) {
    if (Control* control = layout::ControlOf(item.model)) {
      text = NewCaptionOf(host_, parent, *control, item.keys);
    } else {
      text = NewCaption(host_, parent, layout::WithMnemonic(item.text, item.keys));
    }
    if (!item.buddy.empty()) buddies_[text] = item.buddy;
  } else {
    const LabelStyle style = item.look == Look::kStep ? LabelStyle::kStep : LabelStyle::kPlain;
    text = NewLabel(host_, parent, ModelOf<Label>(item), style);
  }
  LONG style = GetWindowLongW(text, GWL_STYLE) & ~SS_TYPEMASK;
  style |= item.align == layout::Align::kCentre  ? SS_CENTER
           : item.align == layout::Align::kRight ? SS_RIGHT
           : item.wrap                           ? SS_LEFT
                                                 : SS_LEFTNOWORDWRAP;
  if (item.kind == Kind::kPathText) style = (style & ~SS_TYPEMASK) | SS_LEFTNOWORDWRAP;
  SetWindowLongW(text, GWL_STYLE, style);
  return text;
}

namespace {

// The bar as the system draws it, and the percentage over it in the bar's
// own text, centred, as a person reads it on the bar; in the host's font
// of the moment, which changes with the screen's DPI.
LRESULT PaintPercentage(HWND bar, const HostWindow& host, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = OwnProcedure(bar, WM_PAINT, wParam, lParam);
  const int length = GetWindowTextLengthW(bar);
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(bar, text.data(), length + 1)));
  RECT box{};
  GetClientRect(bar, &box);
  HDC dc = GetDC(bar);
  const HGDIOBJ old = SelectObject(dc, host.font().bold());
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &box, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  SelectObject(dc, old);
  ReleaseDC(bar, dc);
  return result;
}

}  // namespace

HWND Realiser::MakeProgress(const layout::Item& item, HWND parent, Node& node) {
  // The trough and its bar are one progress bar; the percentage is its text.
  HWND bar = host_.NewControl(PROGRESS_CLASSW, PBS_SMOOTH, parent);
  named_[item.name] = bar;
  Label& total = ModelOf<Label>(item);
  Label& current = ModelOf<Label>(item.children.at(0));
  const layout::Item& text = item.children.at(1);
  named_[text.name] = bar;
  Label& percentage = ModelOf<Label>(text);
  // The bar and its percentage move up to once a file. Each change of the
  // bar's position makes the system draw it at once, and each question
  // put to it costs a server call under Wine; so what they show is taken
  // from the models now (the form may be gone later) and shown when the
  // waiting messages next run, in the bar's own pixels, only where it
  // differs from what the bar was last told.
  struct Shown {
    int width = 1;
    int done = 0;
    int whole = 0;
    std::string text;
    LRESULT pixels = -1;
    LRESULT reach = -1;
    bool pending = false;
  };
  const auto shown = std::make_shared<Shown>();
  RECT box{};
  GetClientRect(bar, &box);
  shown->width = std::max<int>(box.right - box.left, 1);
  const auto place = [bar, shown] {
    const int reach = shown->whole > 0 ? MulDiv(shown->done, shown->width, shown->whole) : 0;
    if (shown->pixels != shown->width) {
      shown->pixels = shown->width;
      SendMessageW(bar, PBM_SETRANGE32, 0, shown->width);
    }
    if (shown->reach != reach) {
      shown->reach = reach;
      SendMessageW(bar, PBM_SETPOS, reach, 0);
    }
  };
  const auto changed = [bar, &total, &current, &percentage, shown, place, &host = host_] {
    shown->done = current.width();
    shown->whole = total.width();
    shown->text = percentage.caption();
    if (shown->pending) return;
    shown->pending = true;
    host.Later([bar, shown, place] {
      shown->pending = false;
      place();
      SetWindowTextIfOther(bar, Widen(shown->text));
      InvalidateRect(bar, nullptr, FALSE);
    });
  };
  for (Label* model : {&total, &current, &percentage}) Follow(model->changed, host_, changed);
  AddToProcedure(bar, [bar, &host = host_, shown, place](UINT message, WPARAM wParam,
                                                         LPARAM lParam) -> std::optional<LRESULT> {
    if (message == WM_SIZE) {
      shown->width = std::max<int>(LOWORD(lParam), 1);
      place();
    }
    if (message != WM_PAINT) return std::nullopt;
    return PaintPercentage(bar, host, wParam, lParam);
  });
  node.children.push_back(Node{&item.children[0], nullptr, {}});
  node.children.push_back(Node{&text, nullptr, {}});
  return bar;
}

void Realiser::Dress(const layout::Item& item, HWND window) {
  if (!item.name.empty()) named_[item.name] = window;
  if (!item.tooltip.empty()) host_.AddTip(window, Widen(item.tooltip));
  switch (item.look) {
    case Look::kBold:
      host_.SetFontRole(window, FontRole::kBold);
      break;
    case Look::kTitle:
      host_.SetFontRole(window, FontRole::kHeading);
      break;
    case Look::kBand:
      host_.SetFontRole(window, FontRole::kBold);
      host_.SetColours(window, GetSysColor(COLOR_HIGHLIGHTTEXT), GetSysColor(COLOR_HIGHLIGHT));
      break;
    case Look::kSheet:
      host_.SetColours(window, GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW));
      break;
    default:
      break;
  }
  // Texts on a sheet take its colours, a heading's too.
  if (sheets_ > 0 && item.look != Look::kBand && item.look != Look::kSheet) {
    host_.SetColours(window, GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW));
  }
}

void Realiser::PlaceCaptionsBeforeBuddies() {
  for (const auto& [caption, buddy] : buddies_) {
    const auto found = named_.find(buddy);
    if (found == named_.end() || GetParent(found->second) != GetParent(caption)) continue;
    HWND before = GetWindow(found->second, GW_HWNDPREV);
    if (before == caption) continue;
    SetWindowPos(caption, before != nullptr ? before : HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
}

}  // namespace tessaly::win32
