#include "file_list_view.h"

#include <QItemSelectionModel>
#include <QListView>

#include "list_box_model.h"

namespace tessaly::qt {

namespace {

class SelectionSync : public QObject {
 public:
  SelectionSync(ListBox& list, QListView* view, ListBoxModel* model)
      : QObject(view), list_(list), view_(view) {
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected, const QItemSelection& deselected) {
              Forward(deselected, false);
              Forward(selected, true);
            });
    model->refreshed = [this] { TakeFromModel(); };
  }

 private:
  void Forward(const QItemSelection& rows, bool selected) {
    if (taking_) return;
    for (const QItemSelectionRange& range : rows) {
      for (int row = range.top(); row <= range.bottom(); ++row) {
        if (row < static_cast<int>(list_.ListCount())) {
          list_.SetSelected(static_cast<std::size_t>(row), selected);
        }
      }
    }
  }

  void TakeFromModel() {
    QItemSelection marks;
    const int rows = static_cast<int>(list_.ListCount());
    for (int row = 0; row < rows;) {
      if (!list_.Selected(static_cast<std::size_t>(row))) {
        ++row;
        continue;
      }
      const int first = row;
      while (row < rows && list_.Selected(static_cast<std::size_t>(row))) ++row;
      marks.select(view_->model()->index(first, 0), view_->model()->index(row - 1, 0));
    }
    if (marks == view_->selectionModel()->selection()) return;
    taking_ = true;
    view_->selectionModel()->select(marks, QItemSelectionModel::ClearAndSelect);
    taking_ = false;
  }

  ListBox& list_;
  QListView* view_;
  bool taking_ = false;
};

}  // namespace

QListView* NewFileListView(ListBox& list, std::function<std::string(std::string_view)> shown,
                           QWidget* parent) {
  auto* view = new QListView(parent);
  view->setSelectionMode(QAbstractItemView::ExtendedSelection);
  view->setUniformItemSizes(true);  // keeps 32,767 rows cheap to lay out
  view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  auto* rows = new ListBoxModel(list, false, view);
  rows->shown = std::move(shown);
  view->setModel(rows);
  new SelectionSync(list, view, rows);
  return view;
}

}  // namespace tessaly::qt
