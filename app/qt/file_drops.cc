#include "file_drops.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "platform/machine.h"

namespace tessaly::qt {

DropData ReadDrop(const QMimeData& mime) {
  DropData data;
  for (const QUrl& url : mime.urls()) {
    if (!url.isLocalFile()) continue;
    QString native = url.toLocalFile();
    // A folder may come with a closing slash; the list holds it without.
    while (native.size() > 1 && native.endsWith(QLatin1Char('/'))) native.chop(1);
    data.files.push_back(machine::ModelPath(native.toStdString()));
  }
  data.hasFiles = !data.files.empty();
  return data;
}

DropTarget::DropTarget(QWidget* target, std::function<void(const QMimeData&)> onDrop)
    : QObject(target), target_(target), onDrop_(std::move(onDrop)) {
  target->setAcceptDrops(true);
  target->installEventFilter(this);
}

bool DropTarget::LandsOnTarget(const QPoint& position) const {
  for (QWidget* hit = target_->childAt(position); hit != nullptr && hit != target_;
       hit = hit->parentWidget()) {
    if (qobject_cast<QAbstractButton*>(hit) || qobject_cast<QAbstractScrollArea*>(hit) ||
        qobject_cast<QComboBox*>(hit) || qobject_cast<QLineEdit*>(hit)) {
      return false;
    }
  }
  return true;
}

bool DropTarget::eventFilter(QObject* watched, QEvent* event) {
  if (watched != target_) return false;
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
      auto* drag = static_cast<QDropEvent*>(event);
      // Any data is taken, as the desktop list takes any data object; what
      // it carries is sorted out at the drop.
      if (LandsOnTarget(drag->position().toPoint())) {
        drag->setDropAction(Qt::CopyAction);
        drag->accept();
      } else {
        drag->ignore();
      }
      return true;
    }
    case QEvent::Drop: {
      auto* drop = static_cast<QDropEvent*>(event);
      if (!LandsOnTarget(drop->position().toPoint())) {
        drop->ignore();
        return true;
      }
      drop->setDropAction(Qt::CopyAction);
      drop->accept();
      onDrop_(*drop->mimeData());
      return true;
    }
    default:
      return false;
  }
}

}  // namespace tessaly::qt
