#include "paint_pacer.h"

#include <QWidget>
#include <utility>

namespace tessaly::qt {

PaintPacer::PaintPacer(QWidget* widget, std::function<void()> onResume)
    : widget_(widget), onResume_(std::move(onResume)) {
  resume_.setSingleShot(true);
  QObject::connect(&resume_, &QTimer::timeout, widget_, [this] {
    if (onResume_) onResume_();
    widget_->setUpdatesEnabled(true);
    sincePaint_.restart();
  });
}

bool PaintPacer::Hold() {
  if (resume_.isActive()) return true;
  // Off screen nothing paints; the first change on screen paints at once,
  // so a window that has just come up shows what it holds.
  if (!widget_->isVisible()) return false;
  const qint64 since = sincePaint_.isValid() ? sincePaint_.elapsed() : kPaintEveryMs;
  if (since >= kPaintEveryMs) {
    sincePaint_.restart();
    return false;
  }
  widget_->setUpdatesEnabled(false);
  resume_.start(kPaintEveryMs - static_cast<int>(since));
  return true;
}

}  // namespace tessaly::qt
