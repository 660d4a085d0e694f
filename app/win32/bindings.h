#ifndef TESSALY_APP_WIN32_BINDINGS_H_
#define TESSALY_APP_WIN32_BINDINGS_H_

#include "windows_h.h"

#include <functional>
#include <string>
#include <string_view>

#include "controls/buttons.h"
#include "controls/combo_box.h"
#include "controls/control.h"
#include "controls/signal.h"
#include "controls/text_box.h"
#include "host_window.h"
#include "wizard/layout/layout.h"

namespace tessaly::win32 {

// Runs `redraw` now and after every emit of `signal`, for as long as
// `host` stands.
template <typename Redraw>
void Follow(Signal& signal, HostWindow& host, Redraw redraw) {
  redraw();
  host.Hold(signal.Connect(std::move(redraw)));
}

// A window's text, and setting it only when it differs (a set text moves
// the caret and may notify).
std::wstring WindowText(HWND window);
void SetWindowTextIfOther(HWND window, const std::wstring& text);

// Controls bound both ways to their models. The model's state is drawn on
// every change; a person's action goes to the model, which decides what it
// means (a check box's click asks the model, which may leave it greyed).
// Captions keep "&" as the mnemonic mark, and one from `keys` is added
// where the model's caption has none.
HWND NewButton(HostWindow& host, HWND parent, CommandButton& model, std::string keys = "");
HWND NewCheckBox(HostWindow& host, HWND parent, CheckBox& model, std::string keys = "");
HWND NewOption(HostWindow& host, HWND parent, OptionButton& model, std::string keys = "");
// kStep: bold when the model says so, and a click is the label's click.
enum class LabelStyle { kPlain, kStep };
HWND NewLabel(HostWindow& host, HWND parent, Label& model, LabelStyle style = LabelStyle::kPlain);
// A label whose caption is a path, shown as a person reads it.
HWND NewPathLabel(HostWindow& host, HWND parent, Label& model,
                  std::function<std::string(std::string_view)> shown);
HWND NewFrame(HostWindow& host, HWND parent, Label& model, std::string keys = "");
// A drop-down list with free text: typing goes to the model letter by
// letter, a pick from the list is the model's Pick.
HWND NewComboBox(HostWindow& host, HWND parent, ComboBox& model);
HWND NewLineEdit(HostWindow& host, HWND parent, TextBox& model);
HWND NewReadOnlyText(HostWindow& host, HWND parent, TextBox& model);
// A fixed caption; "&" marks its mnemonic, which leads to the next control.
HWND NewCaption(HostWindow& host, HWND parent, std::string_view text);
// A caption that follows a control's (the text beside a box).
HWND NewCaptionOf(HostWindow& host, HWND parent, Control& model, std::string keys);
void BindEnabledVisible(HostWindow& host, Control& model, HWND window);

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_BINDINGS_H_
