#ifndef TESSALY_APP_QT_WIZARD_PAGES_H_
#define TESSALY_APP_QT_WIZARD_PAGES_H_

#include <QWidget>

#include "wizard/tessaly_form.h"

class QLabel;
class QVBoxLayout;

namespace tessaly::qt {

// The pages of the five steps, in the order of their index. Each page's
// widgets carry the names of the model's controls.
QWidget* BuildWelcomePage(fTessaly& form);
QWidget* BuildFilePage(fTessaly& form);
QWidget* BuildSettingsPage(fTessaly& form);
QWidget* BuildReviewPage(fTessaly& form);
QWidget* BuildLogPage(fTessaly& form);

// A page with its heading band on top; the body goes into `body`.
struct PageFrame {
  QWidget* page;
  QLabel* heading;
  QVBoxLayout* body;
};
PageFrame MakePage(const char* name);
// The heading band follows a page's caption.
void FollowHeading(Label& page, QLabel* heading);

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_WIZARD_PAGES_H_
