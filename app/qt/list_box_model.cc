#include "list_box_model.h"

#include "bindings.h"

namespace tessaly::qt {

ListBoxModel::ListBoxModel(ListBox& list, bool checkable, QObject* parent)
    : QAbstractListModel(parent), list_(list), checkable_(checkable) {
  shownRows_ = static_cast<int>(list_.ListCount());
  following_ = list_.changed.Connect([this] { MarkStale(); });
}

void ListBoxModel::MarkStale() {
  if (stale_) return;
  stale_ = true;
  QMetaObject::invokeMethod(this, &ListBoxModel::Refresh, Qt::QueuedConnection);
}

void ListBoxModel::Refresh() {
  if (!stale_) return;
  stale_ = false;
  const int rows = static_cast<int>(list_.ListCount());
  if (rows != shownRows_) {
    beginResetModel();
    shownRows_ = rows;
    endResetModel();
  } else if (rows > 0) {
    // Texts or marks may have changed in place; the view repaints only
    // the rows it shows.
    emit dataChanged(index(0), index(rows - 1));
  }
  if (refreshed) refreshed();
}

int ListBoxModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shownRows_;
}

QVariant ListBoxModel::data(const QModelIndex& index, int role) const {
  // Between a change and its refresh the list may be shorter than shown.
  if (!index.isValid() || index.row() >= static_cast<int>(list_.ListCount())) return {};
  const auto row = static_cast<std::size_t>(index.row());
  if (role == Qt::DisplayRole) return ToQtShown(shown ? shown(list_.List(row)) : list_.List(row));
  if (role == Qt::CheckStateRole && checkable_) {
    return list_.Checked(row) ? Qt::Checked : Qt::Unchecked;
  }
  return {};
}

bool ListBoxModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!checkable_ || role != Qt::CheckStateRole || !index.isValid() ||
      index.row() >= static_cast<int>(list_.ListCount())) {
    return false;
  }
  const auto row = static_cast<std::size_t>(index.row());
  const bool wanted = value.toInt() == Qt::Checked;
  // A click on a row's box is the list's own event: it toggles the mark,
  // makes the row current and runs the list's rule.
  if (wanted != list_.Checked(row)) list_.ClickCheckBox(row);
  return true;
}

Qt::ItemFlags ListBoxModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractListModel::flags(index);
  if (checkable_) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

}  // namespace tessaly::qt
