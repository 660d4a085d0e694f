#ifndef TESSALY_APP_QT_LIST_DIALOGS_H_
#define TESSALY_APP_QT_LIST_DIALOGS_H_

#include <QDialog>

#include "controls/form.h"
#include "wizard/layout/windows.h"

namespace tessaly::qt {

// The modal view of a list dialog, as `description` lays it out. Its
// buttons close it by unloading the form; the close box just closes, and
// the caller unloads. Either way the form saves its list.
class ListDialog : public QDialog {
 public:
  ListDialog(Form& form, const layout::Dialog& description, QWidget* owner);
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_LIST_DIALOGS_H_
