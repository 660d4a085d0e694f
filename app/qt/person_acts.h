#ifndef TESSALY_APP_QT_PERSON_ACTS_H_
#define TESSALY_APP_QT_PERSON_ACTS_H_

#include <QObject>

#include "platform/file_system.h"

namespace tessaly::qt {

// Drops the file system's kept answers whenever a person acts (a click, a
// key, a drop, a closed window): time has passed before it, in which the
// disk may have changed. Installed on the application, it sees every event
// before any window does.
class ForgetAnswersWhenAPersonActs : public QObject {
 public:
  ForgetAnswersWhenAPersonActs(FileSystem& fileSystem, QObject* parent)
      : QObject(parent), fileSystem_(fileSystem) {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  FileSystem& fileSystem_;
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_PERSON_ACTS_H_
