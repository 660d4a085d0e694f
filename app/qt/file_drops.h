#ifndef TESSALY_APP_QT_FILE_DROPS_H_
#define TESSALY_APP_QT_FILE_DROPS_H_

#include <QObject>
#include <functional>

#include "files/drop_data.h"

class QMimeData;
class QWidget;

namespace tessaly::qt {

// The files and folders a drag carries (text/uri-list, local files only),
// as model paths. A drag without any local file carries no file list.
DropData ReadDrop(const QMimeData& mime);

// Makes `target` take drops and hands each one to `onDrop`. A drop that
// lands on a control inside `target` (a button, a box, a list of its own)
// belongs to that control, which takes none, so it does nothing; labels
// and plain containers let it through to `target`.
class DropTarget : public QObject {
 public:
  DropTarget(QWidget* target, std::function<void(const QMimeData&)> onDrop);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool LandsOnTarget(const QPoint& position) const;

  QWidget* target_;
  std::function<void(const QMimeData&)> onDrop_;
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_FILE_DROPS_H_
