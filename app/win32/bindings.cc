#include "bindings.h"

#include <commctrl.h>

#include <algorithm>
#include <memory>

#include "platform/win32/utf16.h"

namespace tessaly::win32 {

namespace {

void DrawEnabledVisible(const Control& model, HWND window) {
  if ((IsWindowEnabled(window) != FALSE) != model.enabled()) EnableWindow(window, model.enabled());
  if (ShownByStyle(window) != model.visible()) ShowWindow(window, model.visible() ? SW_SHOWNA : SW_HIDE);
}

void DrawCaption(const Control& model, HWND window, const std::string& keys) {
  SetWindowTextIfOther(window, Widen(layout::WithMnemonic(model.caption(), keys)));
}

// A flag that is up while a binding writes to its control, so the control's
// notifications of that write are not taken for a person's.
class Quiet {
 public:
  explicit Quiet(bool& flag) : flag_(flag), was_(flag) { flag_ = true; }
  ~Quiet() { flag_ = was_; }

 private:
  bool& flag_;
  bool was_;
};

}  // namespace

std::wstring WindowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void SetWindowTextIfOther(HWND window, const std::wstring& text) {
  if (WindowText(window) != text) SetWindowTextW(window, text.c_str());
}

void BindEnabledVisible(HostWindow& host, Control& model, HWND window) {
  Follow(model.changed, host, [&model, window] { DrawEnabledVisible(model, window); });
}

HWND NewButton(HostWindow& host, HWND parent, CommandButton& model, std::string keys) {
  HWND button = host.NewControl(WC_BUTTONW, BS_PUSHBUTTON | WS_TABSTOP, parent,
                                [&model](WORD code) {
                                  if (code == BN_CLICKED) model.Click();
                                });
  Follow(model.changed, host, [&model, button, keys = std::move(keys)] {
    DrawCaption(model, button, keys);
    DrawEnabledVisible(model, button);
  });
  return button;
}

HWND NewCheckBox(HostWindow& host, HWND parent, CheckBox& model, std::string keys) {
  // BS_3STATE, not the automatic kind: a click ticks a box that is clear or
  // greyed and clears a ticked one, and the model may answer otherwise.
  HWND box = host.NewControl(WC_BUTTONW, BS_3STATE | WS_TABSTOP, parent, [&model](WORD code) {
    if (code == BN_CLICKED) model.SetValue(model.value() == 1 ? 0 : 1);
  });
  Follow(model.changed, host, [&model, box, keys = std::move(keys)] {
    DrawCaption(model, box, keys);
    DrawEnabledVisible(model, box);
    const WPARAM state = model.value() == 1   ? BST_CHECKED
                         : model.value() == 2 ? BST_INDETERMINATE
                                              : BST_UNCHECKED;
    SendMessageW(box, BM_SETCHECK, state, 0);
  });
  return box;
}

HWND NewOption(HostWindow& host, HWND parent, OptionButton& model, std::string keys) {
  // Not automatic: the form keeps its group exclusive.
  HWND option = host.NewControl(WC_BUTTONW, BS_RADIOBUTTON | WS_TABSTOP, parent,
                                [&model](WORD code) {
                                  if (code == BN_CLICKED) model.SetValue(true);
                                });
  Follow(model.changed, host, [&model, option, keys = std::move(keys)] {
    DrawCaption(model, option, keys);
    DrawEnabledVisible(model, option);
    SendMessageW(option, BM_SETCHECK, model.value() ? BST_CHECKED : BST_UNCHECKED, 0);
  });
  return option;
}

HWND NewLabel(HostWindow& host, HWND parent, Label& model, LabelStyle style) {
  const DWORD notify = style != LabelStyle::kPlain ? SS_NOTIFY : 0;
  // The model's captions are shown as they are: "&" is no mark in them.
  HWND label = host.NewControl(WC_STATICW, SS_LEFT | SS_NOPREFIX | notify, parent,
                               [&model](WORD code) {
                                 if (code == STN_CLICKED) model.Click();
                               });
  Follow(model.changed, host, [&host, &model, label, style] {
    SetWindowTextIfOther(label, Widen(model.caption()));
    DrawEnabledVisible(model, label);
    if (style != LabelStyle::kPlain) {
      host.SetFontRole(label, model.bold() ? FontRole::kBold : FontRole::kNormal);
    }
  });
  return label;
}

HWND NewPathLabel(HostWindow& host, HWND parent, Label& model,
                  std::function<std::string(std::string_view)> shown) {
  HWND label = host.NewControl(WC_STATICW, SS_LEFT | SS_NOPREFIX | SS_PATHELLIPSIS, parent);
  Follow(model.changed, host, [&model, label, shown = std::move(shown)] {
    SetWindowTextIfOther(label, Widen(shown(model.caption())));
    DrawEnabledVisible(model, label);
  });
  return label;
}

HWND NewFrame(HostWindow& host, HWND parent, Label& model, std::string keys) {
  HWND frame = host.NewControl(WC_BUTTONW, BS_GROUPBOX, parent);
  Follow(model.changed, host, [&model, frame, keys = std::move(keys)] {
    DrawCaption(model, frame, keys);
    DrawEnabledVisible(model, frame);
  });
  return frame;
}

HWND NewComboBox(HostWindow& host, HWND parent, ComboBox& model) {
  auto quiet = std::make_shared<bool>(false);
  auto self = std::make_shared<HWND>();
  auto picking = std::make_shared<bool>(false);
  HWND box = host.NewControl(
      WC_COMBOBOXW, CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP, parent,
      [&host, &model, self, quiet, picking](WORD code) {
        if (*quiet) return;
        if (code == CBN_EDITCHANGE) model.SetText(Narrow(WindowText(*self)));
        // A pick from the open list ends with SELENDOK; an arrow key in the
        // closed box changes the selection, and may report both: one pick.
        const bool closed = SendMessageW(*self, CB_GETDROPPEDSTATE, 0, 0) == FALSE;
        if ((code == CBN_SELENDOK || (code == CBN_SELCHANGE && closed)) && !*picking) {
          *picking = true;
          // The pick's rule may refill this very box, or open a dialog.
          host.Later([&model, self, picking] {
            *picking = false;
            const LRESULT index = SendMessageW(*self, CB_GETCURSEL, 0, 0);
            if (index >= 0) model.Pick(static_cast<std::size_t>(index));
          });
        }
      });
  *self = box;
  Follow(model.changed, host, [&model, box, quiet] {
    const Quiet writing(*quiet);
    const auto& items = model.items();
    bool same = SendMessageW(box, CB_GETCOUNT, 0, 0) == static_cast<LRESULT>(items.size());
    for (std::size_t i = 0; same && i < items.size(); ++i) {
      std::wstring shown(static_cast<std::size_t>(SendMessageW(box, CB_GETLBTEXTLEN, i, 0)), L'\0');
      SendMessageW(box, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(shown.data()));
      same = shown == Widen(items[i]);
    }
    if (!same) {
      const std::wstring text = WindowText(box);
      SendMessageW(box, CB_RESETCONTENT, 0, 0);
      for (const std::string& item : items) {
        SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Widen(item).c_str()));
      }
      SetWindowTextW(box, text.c_str());
    }
    const std::wstring text = Widen(model.text());
    if (WindowText(box) != text) {
      // Keep the caret where the person was typing when the model changed
      // the text around it.
      DWORD start = 0;
      SendMessageW(box, CB_GETEDITSEL, reinterpret_cast<WPARAM>(&start), 0);
      SetWindowTextW(box, text.c_str());
      const auto caret = std::min<DWORD>(start, static_cast<DWORD>(text.size()));
      SendMessageW(box, CB_SETEDITSEL, 0, MAKELPARAM(caret, caret));
    }
    DrawEnabledVisible(model, box);
  });
  return box;
}

HWND NewLineEdit(HostWindow& host, HWND parent, TextBox& model) {
  auto quiet = std::make_shared<bool>(false);
  auto self = std::make_shared<HWND>();
  HWND edit = host.NewControl(WC_EDITW, ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, parent,
                              [&model, self, quiet](WORD code) {
                                if (code == EN_SETFOCUS) model.Focus();
                                if (code == EN_CHANGE && !*quiet) {
                                  model.SetText(Narrow(WindowText(*self)));
                                }
                              });
  *self = edit;
  Follow(model.changed, host, [&model, edit, quiet] {
    const Quiet writing(*quiet);
    SetWindowTextIfOther(edit, Widen(model.text()));
    if (model.selLength() > 0) {
      SendMessageW(edit, EM_SETSEL, model.selStart(), model.selStart() + model.selLength());
    }
    DrawEnabledVisible(model, edit);
  });
  return edit;
}

HWND NewReadOnlyText(HostWindow& host, HWND parent, TextBox& model) {
  HWND edit = host.NewControl(
      WC_EDITW, ES_MULTILINE | ES_READONLY | ES_AUTOHSCROLL | WS_HSCROLL | WS_BORDER | WS_TABSTOP,
      parent);
  Follow(model.changed, host, [&model, edit] {
    SetWindowTextIfOther(edit, Widen(model.text()));
    ShowWindow(edit, model.visible() ? SW_SHOWNA : SW_HIDE);
  });
  return edit;
}

HWND NewCaption(HostWindow& host, HWND parent, std::string_view text) {
  HWND caption = host.NewControl(WC_STATICW, SS_LEFT, parent);
  SetWindowTextW(caption, Widen(text).c_str());
  return caption;
}

HWND NewCaptionOf(HostWindow& host, HWND parent, Control& model, std::string keys) {
  HWND caption = host.NewControl(WC_STATICW, SS_LEFT, parent);
  Follow(model.changed, host, [&model, caption, keys = std::move(keys)] { DrawCaption(model, caption, keys); });
  return caption;
}

}  // namespace tessaly::win32
