#ifndef TESSALY_APP_QT_WIZARD_WINDOW_H_
#define TESSALY_APP_QT_WIZARD_WINDOW_H_

#include <QWidget>

#include "wizard/tessaly_form.h"

class QPushButton;
class QStackedWidget;

namespace tessaly::qt {

// The wizard's window: the strip of steps on the left, the page of the
// step on show beside it, and Back, Next and Cancel below. All it shows
// comes from the form; all a person does goes to the form's handlers.
// As in a dialog, Return that no control takes is Next (or Finish), and
// Escape is Cancel. It opens as large as its pages want where the screen
// has room; where it has not, the pages scroll and the buttons stay in
// view.
class WizardWindow : public QWidget {
 public:
  explicit WizardWindow(fTessaly& form);

  QStackedWidget* pages() const { return pages_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  fTessaly* form_;  // null once the form is unloaded
  QStackedWidget* pages_;
  QPushButton* next_;
  QPushButton* cancel_;
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_WIZARD_WINDOW_H_
