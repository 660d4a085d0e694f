#ifndef TESSALY_APP_QT_PROGRESS_WINDOW_H_
#define TESSALY_APP_QT_PROGRESS_WINDOW_H_

#include <QWidget>

#include "paint_pacer.h"
#include "wizard/progress_form.h"

class QFrame;
class QLabel;

namespace tessaly::qt {

// The small window beside a loop: a trough with the bar (`lCur` as wide,
// against `lTotal`, as the model says) and the percentage over it. Not
// modal, no task-bar entry, centred on its owner, no button. It goes when
// its form is unloaded. Its loop moves it after every file: it paints
// at most every few tens of milliseconds.
class ProgressWindow : public QWidget {
 public:
  ProgressWindow(fProgress& form, QWidget* owner);

  // The percentage on show, and the bar's share of the trough (0 to 1).
  QString percentText() const;
  double barShare() const;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void DrawBar();
  void PlaceOnOwner();

  fProgress* form_;  // null once unloaded: the form goes right after
  QWidget* owner_;
  QFrame* trough_;
  QWidget* bar_;
  QLabel* caption_;
  PaintPacer pacer_{this};
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_PROGRESS_WINDOW_H_
