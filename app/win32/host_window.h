#ifndef TESSALY_APP_WIN32_HOST_WINDOW_H_
#define TESSALY_APP_WIN32_HOST_WINDOW_H_

#include "windows_h.h"
#include <shellapi.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "controls/signal.h"
#include "layout_engine.h"
#include "system_font.h"

namespace tessaly::win32 {

enum class FontRole { kNormal, kBold, kHeading };

// One window of the program (the wizard, a dialog, the progress window)
// with the panels and controls inside it. Whatever its controls report
// (commands, notifications, drops, colours) comes here, from the window
// itself or from any panel in it, and goes to the handler registered for
// that control. Keys are those of a dialog (the message pump runs
// IsDialogMessage on this window): Tab, mnemonics, Return for the default
// button, Escape for `onCancel`.
class HostWindow {
 public:
  HostWindow(std::wstring_view title, DWORD style, HWND owner);
  virtual ~HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  HWND hwnd() const { return hwnd_; }
  const SystemFont& font() const { return *font_; }
  // Keeps a connection to a model's signal for as long as the window
  // stands: models outlive many of their windows.
  void Hold(Connection connection) { connections_.push_back(std::move(connection)); }

  // A child panel of `parent` whose controls report here.
  HWND NewPanel(HWND parent);
  // A control of `className` in `parent`, in the window's font, with an id
  // of its own; `onCommand` gets its WM_COMMAND notification codes.
  HWND NewControl(const wchar_t* className, DWORD style, HWND parent,
                  std::function<void(WORD code)> onCommand = {},
                  FontRole role = FontRole::kNormal);
  void OnNotify(HWND control, std::function<LRESULT(NMHDR&)> handler);
  // Runs `action` once the message being handled is done with: for a
  // model's rule that may change the control that reports, inside whose
  // own handling the report comes.
  void Later(std::function<void()> action);
  void SetFontRole(HWND control, FontRole role);
  // Text and background of a static control or panel.
  void SetColours(HWND control, COLORREF text, COLORREF background);
  // A tip that shows while the pointer rests on `control`.
  void AddTip(HWND control, const std::wstring& text);
  // Shows the tips of the host window `root` the mouse message `message`.
  static void RelayToTips(HWND root, MSG& message);

  // The realised items the window lays out at every change of size. They
  // are first placed when the window takes its size: placing them at the
  // size a window is born with would move every control twice.
  void SetLayout(Node root);
  void Relayout();
  // The node of the realised item whose window is `window`.
  Node* NodeOf(HWND window);
  // The outer size the layout needs at least; at least `atLeast` (dialog
  // units of the inside) when given.
  SIZE MinimumWindowSize(layout::Size atLeast = {}) const;
  void SetDefaultButton(HWND button);

  std::function<void()> onCancel;  // Escape
  std::function<void()> onClose;   // the close box; without it, nothing
  // Files dropped on `target`, one of the windows that take them.
  std::function<void(HWND target, HDROP drop)> onDrop;

 protected:
  // Messages the window handles beyond the common ones; nullopt: not handled.
  virtual std::optional<LRESULT> Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Route(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> Common(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void ChangeDpi(UINT dpi, const RECT* suggested);
  HBRUSH BrushFor(HWND control, HDC dc);

  HWND hwnd_ = nullptr;
  std::unique_ptr<SystemFont> font_;
  std::vector<Connection> connections_;
  bool dying_ = false;
  std::optional<Node> root_;
  int nextId_ = 100;
  int defaultId_ = 0;
  std::map<int, std::function<void(WORD)>> commands_;
  std::vector<std::function<void()>> later_;
  std::map<HWND, std::function<LRESULT(NMHDR&)>> notifications_;
  std::map<HWND, FontRole> roles_;
  struct Colours {
    COLORREF text;
    HBRUSH background;
  };
  std::map<HWND, Colours> colours_;
  HWND tips_ = nullptr;
};

// Whether `window`'s own style holds WS_VISIBLE, whatever its parents'.
bool ShownByStyle(HWND window);

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_HOST_WINDOW_H_
