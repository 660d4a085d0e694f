#include "person_acts.h"

#include <QEvent>

namespace tessaly::qt {

bool ForgetAnswersWhenAPersonActs::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
    case QEvent::Drop:
    case QEvent::Close:
      fileSystem_.ForgetAnswers();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace tessaly::qt
