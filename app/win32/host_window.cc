#include "host_window.h"

#include <commctrl.h>

#include <algorithm>

namespace tessaly::win32 {

namespace {

constexpr wchar_t kClassName[] = L"TessalyWindow";
constexpr UINT kRunLater = WM_APP + 10;

void RegisterOnce(WNDPROC procedure) {
  static const bool registered = [procedure] {
    WNDCLASSEXW type{};
    type.cbSize = sizeof(type);
    type.style = CS_HREDRAW | CS_VREDRAW;
    type.lpfnWndProc = procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    // The program's icon is resource 1; a test program has none.
    type.hIcon = LoadIconW(type.hInstance, MAKEINTRESOURCEW(1));
    type.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    type.lpszClassName = kClassName;
    return RegisterClassExW(&type) != 0;
  }();
  (void)registered;
}

}  // namespace

bool ShownByStyle(HWND window) { return (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0; }

HostWindow::HostWindow(std::wstring_view title, DWORD style, HWND owner) {
  RegisterOnce(&HostWindow::Procedure);
  font_ = std::make_unique<SystemFont>(owner != nullptr ? GetDpiForWindow(owner) : GetDpiForSystem());
  const std::wstring caption(title);
  hwnd_ = CreateWindowExW(WS_EX_CONTROLPARENT, kClassName, caption.c_str(), style | WS_CLIPCHILDREN,
                          CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner,
                          nullptr, GetModuleHandleW(nullptr), this);
  const UINT dpi = GetDpiForWindow(hwnd_);
  if (dpi != 0 && dpi != font_->dpi()) font_ = std::make_unique<SystemFont>(dpi);
}

HostWindow::~HostWindow() {
  connections_.clear();  // no model redraws a control that is going
  dying_ = true;
  for (auto& [control, colours] : colours_) DeleteObject(colours.background);
  DestroyWindow(hwnd_);
}

HWND HostWindow::NewPanel(HWND parent) {
  return CreateWindowExW(WS_EX_CONTROLPARENT, kClassName, L"",
                         WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 0, 0, parent, nullptr,
                         GetModuleHandleW(nullptr), this);
}

HWND HostWindow::NewControl(const wchar_t* className, DWORD style, HWND parent,
                            std::function<void(WORD)> onCommand, FontRole role) {
  const int id = nextId_++;
  HWND control = CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                                 parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                 GetModuleHandleW(nullptr), nullptr);
  if (onCommand) commands_[id] = std::move(onCommand);
  SetFontRole(control, role);
  return control;
}

void HostWindow::OnNotify(HWND control, std::function<LRESULT(NMHDR&)> handler) {
  notifications_[control] = std::move(handler);
}

void HostWindow::Later(std::function<void()> action) {
  later_.push_back(std::move(action));
  PostMessageW(hwnd_, kRunLater, 0, 0);
}

void HostWindow::SetFontRole(HWND control, FontRole role) {
  roles_[control] = role;
  const HFONT font = role == FontRole::kBold      ? font_->bold()
                     : role == FontRole::kHeading ? font_->heading()
                                                  : font_->normal();
  // A window not yet on show draws when it comes up; a redraw asked for
  // now costs Wine several server calls for nothing.
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), IsWindowVisible(hwnd_));
}

void HostWindow::SetColours(HWND control, COLORREF text, COLORREF background) {
  if (auto old = colours_.find(control); old != colours_.end()) DeleteObject(old->second.background);
  colours_[control] = {text, CreateSolidBrush(background)};
  InvalidateRect(control, nullptr, TRUE);
}

void HostWindow::AddTip(HWND control, const std::wstring& text) {
  if (tips_ == nullptr) {
    tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP,
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, hwnd_,
                            nullptr, GetModuleHandleW(nullptr), nullptr);
  }
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof(tool);
  // No TTF_SUBCLASS: under Wine the subclass looks up a window property,
  // a server call, on every message the control gets; the message loop
  // relays the mouse instead (RelayToTips).
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = GetParent(control);
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = const_cast<wchar_t*>(text.c_str());
  SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void HostWindow::SetLayout(Node root) { root_ = std::move(root); }

namespace {

Node* Find(Node& node, HWND window) {
  if (node.window == window) return &node;
  for (Node& child : node.children) {
    if (Node* found = Find(child, window)) return found;
  }
  return nullptr;
}

}  // namespace

Node* HostWindow::NodeOf(HWND window) { return root_ ? Find(*root_, window) : nullptr; }

void HostWindow::Relayout() {
  if (!root_) return;
  RECT client;
  GetClientRect(hwnd_, &client);
  LayoutEngine(*font_).Place(*root_, client);
}

SIZE HostWindow::MinimumWindowSize(layout::Size atLeast) const {
  if (!root_) return {0, 0};
  const LayoutEngine engine(*font_);
  const int width = std::max(engine.MinWidth(*root_), font_->X(atLeast.width));
  const int height = std::max(engine.MinHeight(*root_, width), font_->Y(atLeast.height));
  RECT outer{0, 0, width, height};
  AdjustWindowRectExForDpi(&outer, static_cast<DWORD>(GetWindowLongW(hwnd_, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongW(hwnd_, GWL_EXSTYLE)), font_->dpi());
  return {outer.right - outer.left, outer.bottom - outer.top};
}

void HostWindow::SetDefaultButton(HWND button) {
  defaultId_ = GetDlgCtrlID(button);
  SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
}

void HostWindow::ChangeDpi(UINT dpi, const RECT* suggested) {
  font_ = std::make_unique<SystemFont>(dpi);
  for (const auto& [control, role] : roles_) SetFontRole(control, role);
  if (suggested != nullptr) {
    SetWindowPos(hwnd_, nullptr, suggested->left, suggested->top, suggested->right - suggested->left,
                 suggested->bottom - suggested->top, SWP_NOZORDER | SWP_NOACTIVATE);
  }
  Relayout();
}

HBRUSH HostWindow::BrushFor(HWND control, HDC dc) {
  const auto found = colours_.find(control);
  if (found == colours_.end()) return nullptr;
  SetTextColor(dc, found->second.text);
  SetBkMode(dc, TRANSPARENT);
  return found->second.background;
}

std::optional<LRESULT> HostWindow::Handle(HWND, UINT, WPARAM, LPARAM) { return std::nullopt; }

std::optional<LRESULT> HostWindow::Common(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND: {
      const int id = LOWORD(wParam);
      // Controls' ids start above the dialog's own: IDCANCEL is Escape.
      if (id == IDCANCEL) {
        if (onCancel) onCancel();
        return 0;
      }
      if (const auto found = commands_.find(id); found != commands_.end()) {
        const auto handler = found->second;  // the handler may close this window
        handler(HIWORD(wParam));
        return 0;
      }
      return std::nullopt;
    }
    case WM_NOTIFY: {
      auto* header = reinterpret_cast<NMHDR*>(lParam);
      if (const auto found = notifications_.find(header->hwndFrom); found != notifications_.end()) {
        const auto handler = found->second;
        return handler(*header);
      }
      return std::nullopt;
    }
    case DM_GETDEFID:
      if (window != hwnd_ || defaultId_ == 0) return std::nullopt;
      return MAKELRESULT(defaultId_, DC_HASDEFID);
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      if (HBRUSH brush = BrushFor(reinterpret_cast<HWND>(lParam), reinterpret_cast<HDC>(wParam))) {
        return reinterpret_cast<LRESULT>(brush);
      }
      return std::nullopt;
    case WM_ERASEBKGND:
      if (const auto found = colours_.find(window); found != colours_.end()) {
        RECT client;
        GetClientRect(window, &client);
        FillRect(reinterpret_cast<HDC>(wParam), &client, found->second.background);
        return 1;
      }
      return std::nullopt;
    case WM_DROPFILES:
      if (onDrop) {
        onDrop(window, reinterpret_cast<HDROP>(wParam));
      } else {
        DragFinish(reinterpret_cast<HDROP>(wParam));
      }
      return 0;
    default:
      break;
  }
  if (window != hwnd_) return std::nullopt;
  switch (message) {
    case kRunLater: {
      std::vector<std::function<void()>> due;
      due.swap(later_);
      for (const auto& action : due) action();
      return 0;
    }
    case WM_SIZE:
      Relayout();
      return 0;
    case WM_GETMINMAXINFO: {
      const SIZE least = MinimumWindowSize();
      auto* info = reinterpret_cast<MINMAXINFO*>(lParam);
      info->ptMinTrackSize = {least.cx, least.cy};
      return 0;
    }
    case WM_DPICHANGED:
      ChangeDpi(HIWORD(wParam), reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_CLOSE:
      if (onClose) {
        const auto handler = onClose;
        handler();
      }
      return 0;
    default:
      return std::nullopt;
  }
}

LRESULT HostWindow::Route(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!dying_) {
    if (auto handled = Handle(window, message, wParam, lParam)) return *handled;
    if (auto handled = Common(window, message, wParam, lParam)) return *handled;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

void HostWindow::RelayToTips(HWND root, MSG& message) {
  auto* host = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(root, GWLP_USERDATA));
  if (host == nullptr || host->tips_ == nullptr) return;
  SendMessageW(host->tips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* create = reinterpret_cast<CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  auto* host = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (host == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  return host->Route(window, message, wParam, lParam);
}

}  // namespace tessaly::win32
