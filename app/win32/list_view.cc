#include "list_view.h"

#include <commctrl.h>

#include <algorithm>

#include "bindings.h"
#include "extra_procedure.h"
#include "platform/win32/utf16.h"

namespace tessaly::win32 {

namespace {

constexpr UINT kRefresh = WM_APP + 1;
// After a click or Space on a row's box: toggle it unless the view did.
constexpr UINT kToggleCheck = WM_APP + 2;

class ListViewBinding {
 public:
  ListViewBinding(HWND view, ListBox& list, ListKind kind,
                  std::function<std::string(std::string_view)> shown)
      : view_(view), list_(list), kind_(kind), shown_(std::move(shown)) {}

  void MarkStale() {
    if (stale_) return;
    stale_ = true;
    PostMessageW(view_, kRefresh, 0, 0);
  }

  void Refresh() {
    stale_ = false;
    const auto rows = static_cast<int>(list_.ListCount());
    if (SendMessageW(view_, LVM_GETITEMCOUNT, 0, 0) != rows) {
      SendMessageW(view_, LVM_SETITEMCOUNT, rows, LVSICF_NOSCROLL);
    }
    InvalidateRect(view_, nullptr, FALSE);
    const bool wasTaking = taking_;
    taking_ = true;
    if (kind_ == ListKind::kSelectable) {
      TakeSelection(rows);
    } else {
      TakeCurrentRow();
    }
    taking_ = wasTaking;
  }

  LRESULT Notify(NMHDR& header) {
    switch (header.code) {
      case LVN_GETDISPINFOW:
        Describe(reinterpret_cast<NMLVDISPINFOW&>(header).item);
        return 0;
      case LVN_ITEMCHANGED:
        ItemChanged(reinterpret_cast<NMLISTVIEW&>(header));
        return 0;
      case LVN_ODSTATECHANGED: {
        const auto& range = reinterpret_cast<NMLVODSTATECHANGE&>(header);
        if ((range.uNewState ^ range.uOldState) & LVIS_SELECTED) {
          MarkRows(range.iFrom, range.iTo, (range.uNewState & LVIS_SELECTED) != 0);
        }
        return 0;
      }
      case NM_CLICK: {
        const auto& click = reinterpret_cast<NMITEMACTIVATE&>(header);
        LVHITTESTINFO hit{};
        hit.pt = click.ptAction;
        SendMessageW(view_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        if (kind_ == ListKind::kCheckable && hit.iItem >= 0 && (hit.flags & LVHT_ONITEMSTATEICON)) {
          PostMessageW(view_, kToggleCheck, static_cast<WPARAM>(hit.iItem), 0);
        }
        return 0;
      }
      case LVN_KEYDOWN:
        if (kind_ == ListKind::kCheckable &&
            reinterpret_cast<NMLVKEYDOWN&>(header).wVKey == VK_SPACE && list_.ListIndex() >= 0) {
          PostMessageW(view_, kToggleCheck, static_cast<WPARAM>(list_.ListIndex()), 0);
        }
        return 0;
      default:
        return 0;
    }
  }

  void ToggleCheck(std::size_t row) {
    // The view may have asked for the toggle itself, as a change of the
    // row's state image: then it is done.
    if (!viewToggled_ && row < list_.ListCount()) list_.ClickCheckBox(row);
    viewToggled_ = false;
  }

 private:
  void Describe(LVITEMW& item) const {
    if (item.iItem < 0 || item.iItem >= static_cast<int>(list_.ListCount())) return;
    const auto row = static_cast<std::size_t>(item.iItem);
    if ((item.mask & LVIF_TEXT) && item.pszText != nullptr && item.cchTextMax > 0) {
      const std::wstring text = Widen(shown_ ? shown_(list_.List(row)) : list_.List(row));
      const std::size_t length = std::min<std::size_t>(text.size(), item.cchTextMax - 1);
      std::copy_n(text.data(), length, item.pszText);
      item.pszText[length] = L'\0';
    }
    if ((item.mask & LVIF_STATE) && kind_ == ListKind::kCheckable) {
      item.state = (item.state & ~LVIS_STATEIMAGEMASK) |
                   INDEXTOSTATEIMAGEMASK(list_.Checked(row) ? 2 : 1);
      item.stateMask |= LVIS_STATEIMAGEMASK;
    }
  }

  void ItemChanged(const NMLISTVIEW& change) {
    if (taking_ || !(change.uChanged & LVIF_STATE)) return;
    const UINT flipped = change.uNewState ^ change.uOldState;
    if (kind_ == ListKind::kSelectable && (flipped & LVIS_SELECTED)) {
      const bool selected = (change.uNewState & LVIS_SELECTED) != 0;
      if (change.iItem < 0) {
        MarkRows(0, static_cast<int>(list_.ListCount()) - 1, selected);
      } else {
        MarkRows(change.iItem, change.iItem, selected);
      }
    }
    if (kind_ == ListKind::kCheckable && change.iItem >= 0) {
      if ((flipped & LVIS_SELECTED) && (change.uNewState & LVIS_SELECTED) &&
          change.iItem != list_.ListIndex()) {
        list_.SetListIndex(change.iItem);
      }
      if (flipped & LVIS_STATEIMAGEMASK) {
        const bool wanted = (change.uNewState & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
        const auto row = static_cast<std::size_t>(change.iItem);
        if (row < list_.ListCount() && wanted != list_.Checked(row)) list_.ClickCheckBox(row);
        viewToggled_ = true;
      }
    }
  }

  void MarkRows(int from, int to, bool selected) {
    const int last = std::min(to, static_cast<int>(list_.ListCount()) - 1);
    for (int row = std::max(from, 0); row <= last; ++row) {
      list_.SetSelected(static_cast<std::size_t>(row), selected);
    }
  }

  // The view takes the model's marks, touching only rows that differ.
  void TakeSelection(int rows) {
    bool same = SendMessageW(view_, LVM_GETSELECTEDCOUNT, 0, 0) == static_cast<LRESULT>(list_.SelCount());
    for (int row = -1; same;) {
      row = static_cast<int>(SendMessageW(view_, LVM_GETNEXTITEM, row, LVNI_SELECTED));
      if (row < 0) break;
      same = row < rows && list_.Selected(static_cast<std::size_t>(row));
    }
    if (same) return;
    SetState(-1, 0, LVIS_SELECTED);
    for (int row = 0; row < rows; ++row) {
      if (list_.Selected(static_cast<std::size_t>(row))) SetState(row, LVIS_SELECTED, LVIS_SELECTED);
    }
  }

  void TakeCurrentRow() {
    const int current = list_.ListIndex();
    if (current < 0) {
      SetState(-1, 0, LVIS_SELECTED | LVIS_FOCUSED);
      return;
    }
    SetState(current, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    SendMessageW(view_, LVM_ENSUREVISIBLE, current, FALSE);
  }

  void SetState(int row, UINT state, UINT mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    SendMessageW(view_, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
  }

  HWND view_;
  ListBox& list_;
  ListKind kind_;
  std::function<std::string(std::string_view)> shown_;
  bool stale_ = false;
  bool taking_ = false;
  bool viewToggled_ = false;
};

std::optional<LRESULT> BindingProcedure(HWND view, ListViewBinding* binding, UINT message, WPARAM wParam,
                                        LPARAM lParam) {
  switch (message) {
    case kRefresh:
      binding->Refresh();
      return 0;
    case kToggleCheck:
      binding->ToggleCheck(wParam);
      return 0;
    case WM_SIZE: {
      const LRESULT result = OwnProcedure(view, message, wParam, lParam);
      SendMessageW(view, LVM_SETCOLUMNWIDTH, 0, LVSCW_AUTOSIZE_USEHEADER);
      return result;
    }
    case WM_NCDESTROY:
      delete binding;
      break;
    default:
      break;
  }
  return std::nullopt;
}

}  // namespace

HWND NewListView(HostWindow& host, HWND parent, ListBox& list, ListKind kind,
                 std::function<std::string(std::string_view)> shown) {
  const DWORD single = kind == ListKind::kCheckable ? LVS_SINGLESEL : 0;
  HWND view = host.NewControl(WC_LISTVIEWW,
                              LVS_REPORT | LVS_OWNERDATA | LVS_NOCOLUMNHEADER | LVS_SHOWSELALWAYS |
                                  single | WS_BORDER | WS_TABSTOP,
                              parent);
  DWORD extended = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
  if (kind == ListKind::kCheckable) extended |= LVS_EX_CHECKBOXES;
  SendMessageW(view, LVM_SETEXTENDEDLISTVIEWSTYLE, extended, extended);
  // The check marks are the model's: the view asks for them with the text.
  if (kind == ListKind::kCheckable) SendMessageW(view, LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK, 0);
  LVCOLUMNW column{};
  column.mask = LVCF_WIDTH;
  column.cx = 100;
  SendMessageW(view, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));

  auto* binding = new ListViewBinding(view, list, kind, std::move(shown));
  AddToProcedure(view, [view, binding](UINT message, WPARAM wParam, LPARAM lParam) {
    return BindingProcedure(view, binding, message, wParam, lParam);
  });
  host.OnNotify(view, [binding](NMHDR& header) { return binding->Notify(header); });
  binding->Refresh();
  Follow(list.changed, host, [binding] { binding->MarkStale(); });
  BindEnabledVisible(host, list, view);
  return view;
}

}  // namespace tessaly::win32
