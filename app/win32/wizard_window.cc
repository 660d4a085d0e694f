#include "wizard_window.h"

#include <algorithm>
#include <memory>

#include "bindings.h"
#include "dropped_files.h"
#include "platform/win32/utf16.h"

namespace tessaly::win32 {

namespace {

using namespace layout;

// The strip's sky, and room above the steps for the emblem.
constexpr COLORREF kSky = RGB(38, 84, 150);
constexpr int kEmblemUnits = 56;

Item StepStrip(const layout::WizardWindow& window) {
  std::vector<Item> steps = window.steps;
  steps.push_back(Stretch());
  return Panel("pLogo", Column(std::move(steps)).Margined(8, kEmblemUnits + 16, 8, 8).Spaced(-1, 7));
}

// A page: its heading on a band in a text field's colours, a rule, the body.
Item PageItem(const Page& page, Label& shownBy) {
  Item heading = Panel("", Column({Item(page.heading).Styled(Look::kTitle)}).Margined(6, 7, 6, 7))
                     .Styled(Look::kSheet);
  return Panel(page.name, Column({std::move(heading), Line(), Item(page.body).Grow(1)}).Spaced(-1, 0),
               &shownBy);
}

Item WholeWindow(fTessaly& form, const layout::WizardWindow& window) {
  std::vector<Item> pages;
  for (std::size_t i = 0; i < window.pages.size(); ++i) {
    pages.push_back(PageItem(window.pages[i], form.pStep[i]));
  }
  Item right = Column({Overlay(std::move(pages)).Grow(1), Line(), window.buttons}).Spaced(-1, 0);
  return Row({StepStrip(window), std::move(right).Grow(1)}).Spaced(0, -1);
}

}  // namespace

WizardWindow::WizardWindow(fTessaly& form)
    : HostWindow(Widen(form.caption()), WS_OVERLAPPEDWINDOW, nullptr),
      form_(form),
      description_(DescribeWizard(form)),
      whole_(WholeWindow(form, description_)) {
  std::vector<std::string> pages;
  for (const Page& page : description_.pages) pages.push_back(page.name);
  realiser_.DeferHiddenPanels(std::move(pages));
  SetLayout(realiser_.Realise(whole_, hwnd()));
  realiser_.PlaceCaptionsBeforeBuddies();

  strip_ = named_.at("pLogo");
  SetColours(strip_, RGB(255, 255, 255), kSky);
  for (const Item& step : description_.steps) SetColours(named_.at(step.name), RGB(255, 255, 255), kSky);
  for (const Page& page : description_.pages) {
    if (!page.takesDrops) continue;
    const HWND panel = named_.at(page.name);
    DragAcceptFiles(panel, TRUE);
    drops_[panel] = page.drop;
  }
  onDrop = [this](HWND target, HDROP drop) { TakeDrops(target, drop); };

  SetDefaultButton(named_.at(description_.defaultButton));
  const HWND cancel = named_.at(description_.cancelButton);
  onCancel = [this, cancel] {
    SendMessageW(hwnd(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(cancel), BN_CLICKED),
                 reinterpret_cast<LPARAM>(cancel));
  };
  // The close box ends the program as Cancel does, saving nothing.
  onClose = [this] { form_.EndProgram(); };
  Follow(form.changed, *this, [this, &form] { SetWindowTextIfOther(hwnd(), Widen(form.caption())); });

  const SIZE size = MinimumWindowSize(description_.size);
  SetWindowPos(hwnd(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  Relayout();  // when the size was already the one asked for
  RealisePagesWhenShown();
}

void WizardWindow::RealisePagesWhenShown() {
  for (const Realiser::Deferred& page : realiser_.TakeDeferred()) {
    Label& shownBy = *std::get<Label*>(page.item->model);
    auto made = std::make_shared<bool>(false);
    Follow(shownBy.changed, *this, [this, page, &shownBy, made] {
      if (*made || !shownBy.visible()) return;
      *made = true;
      realiser_.RealiseContents(page, *NodeOf(page.panel));
      const SIZE least = MinimumWindowSize(description_.size);
      RECT now;
      GetWindowRect(hwnd(), &now);
      if (now.right - now.left >= least.cx && now.bottom - now.top >= least.cy) {
        Relayout();
        return;
      }
      SetWindowPos(hwnd(), nullptr, 0, 0, std::max<LONG>(now.right - now.left, least.cx),
                   std::max<LONG>(now.bottom - now.top, least.cy), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    });
  }
}

void WizardWindow::TakeDrops(HWND target, HDROP drop) {
  const auto found = drops_.find(target);
  if (found == drops_.end() || LandsOnControl(target, drop)) {
    DragFinish(drop);
    return;
  }
  found->second(ReadDrop(drop));
}

void WizardWindow::PaintEmblem(HWND strip) {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(strip, &paint);
  RECT client;
  GetClientRect(strip, &client);
  const int size = font().Y(kEmblemUnits) * 3 / 4;
  const auto icon = static_cast<HICON>(
      LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON, size, size, 0));
  if (icon != nullptr) {
    DrawIconEx(dc, (client.right - size) / 2, font().Y(12), icon, size, size, 0, nullptr, DI_NORMAL);
    DestroyIcon(icon);
  }
  EndPaint(strip, &paint);
}

std::optional<LRESULT> WizardWindow::Handle(HWND window, UINT message, WPARAM, LPARAM) {
  if (window == strip_ && strip_ != nullptr && message == WM_PAINT) {
    PaintEmblem(window);
    return 0;
  }
  return std::nullopt;
}

}  // namespace tessaly::win32
