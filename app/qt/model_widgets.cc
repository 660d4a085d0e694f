#include "model_widgets.h"

#include <QMouseEvent>

namespace tessaly::qt {

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) &&
      onClick) {
    onClick();
  }
  QLabel::mouseReleaseEvent(event);
}

}  // namespace tessaly::qt
