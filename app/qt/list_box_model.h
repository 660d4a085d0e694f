#ifndef TESSALY_APP_QT_LIST_BOX_MODEL_H_
#define TESSALY_APP_QT_LIST_BOX_MODEL_H_

#include <QAbstractListModel>
#include <functional>

#include "controls/list_box.h"

namespace tessaly::qt {

// A ListBox as a Qt item model, for lists of up to 32,767 rows. A list can
// change thousands of times inside one rule (a directory walk adds row by
// row), so changes only mark the model stale and one refresh follows when
// the event loop next runs: a reset when the row count moved, else a
// repaint of the rows on show. `refreshed` runs behind every refresh.
class ListBoxModel : public QAbstractListModel {
 public:
  ListBoxModel(ListBox& list, bool checkable, QObject* parent);

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  // Brings the rows in line with the list now, if anything changed.
  void Refresh();
  std::function<void()> refreshed;
  // How a row's text is shown; as it stands when unset. Either way its
  // layout characters show as pictures.
  std::function<std::string(std::string_view)> shown;

 private:
  void MarkStale();

  ListBox& list_;
  bool checkable_;
  bool stale_ = false;
  int shownRows_ = 0;
  Connection following_;  // last, so it goes first
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_LIST_BOX_MODEL_H_
