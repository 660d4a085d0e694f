#ifndef TESSALY_APP_QT_WIZARD_PAGES_H_
#define TESSALY_APP_QT_WIZARD_PAGES_H_

#include "wizard/layout/windows.h"

class QWidget;

namespace tessaly::qt {

// A step's page as described: the heading band in the colours of a text
// field, a rule, and the body.
QWidget* BuildPage(const layout::Page& page);

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_WIZARD_PAGES_H_
