#include "check_list.h"

#include <QItemSelectionModel>
#include <QListView>
#include <memory>

#include "bindings.h"
#include "list_box_model.h"

namespace tessaly::qt {

void BindCheckList(ListBox& list, QListView* view) {
  view->setSelectionMode(QAbstractItemView::SingleSelection);
  view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  auto* rows = new ListBoxModel(list, true, view);
  view->setModel(rows);
  auto drawing = std::make_shared<bool>(false);

  const auto drawCurrent = [&list, view, drawing] {
    *drawing = true;
    const int current = list.ListIndex();
    if (current < 0) {
      view->selectionModel()->clear();
    } else {
      view->setCurrentIndex(view->model()->index(current, 0));
    }
    *drawing = false;
  };
  rows->refreshed = drawCurrent;
  drawCurrent();

  const auto choose = [&list, drawing](const QModelIndex& index) {
    if (*drawing || !index.isValid()) return;
    list.SetListIndex(index.row());
  };
  QObject::connect(view, &QListView::clicked, view, choose);
  QObject::connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, view,
                   [&list, choose](const QModelIndex& index) {
                     if (index.isValid() && index.row() != list.ListIndex()) choose(index);
                   });
}

}  // namespace tessaly::qt
