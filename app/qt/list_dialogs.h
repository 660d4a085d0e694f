#ifndef TESSALY_APP_QT_LIST_DIALOGS_H_
#define TESSALY_APP_QT_LIST_DIALOGS_H_

#include <QDialog>

#include "controls/form.h"
#include "lists/replace_advanced.h"
#include "lists/unwanted_formatting.h"

namespace tessaly::qt {

// The modal views of the two list dialogs. Their buttons close them by
// unloading the form; the close box just closes, and the caller unloads.
// Either way the form saves its list.
class ListDialog : public QDialog {
 public:
  ListDialog(Form& form, QWidget* owner);
};

class ReplaceAdvancedDialog : public ListDialog {
 public:
  ReplaceAdvancedDialog(fReplaceAdvanced& form, QWidget* owner);
};

class UnwantedFormattingDialog : public ListDialog {
 public:
  UnwantedFormattingDialog(fUnwantedFormatting& form, QWidget* owner);
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_LIST_DIALOGS_H_
