#ifndef TESSALY_APP_QT_BINDINGS_H_
#define TESSALY_APP_QT_BINDINGS_H_

#include <QObject>
#include <QString>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "controls/buttons.h"
#include "controls/combo_box.h"
#include "controls/control.h"
#include "controls/signal.h"
#include "controls/text_box.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QWidget;

namespace tessaly::qt {

class ModelCheckBox;
class ModelRadioButton;

// Model texts are UTF-8 with CR LF line ends; widgets want QString and LF.
QString ToQt(std::string_view text);
QString ToQtLines(std::string_view text);
std::string FromQt(const QString& text);
// A name or path as a person reads it: every character that would act as
// layout (controls, the marks that turn the direction of writing) shows as
// a picture of itself, as in the log, so no name can pass for another.
QString ToQtShown(std::string_view text);

// Keeps `connection` until `owner` goes: the models outlive many of their
// views (a dialog's form is unloaded after its view is gone).
void HoldUntilGone(QObject* owner, Connection connection);

// Runs `redraw` now and after every emit of `signal`, for as long as
// `receiver` lives.
template <typename Redraw>
void Follow(Signal& signal, QObject* receiver, Redraw redraw) {
  redraw();
  HoldUntilGone(receiver, signal.Connect(std::move(redraw)));
}

// `caption` with a mnemonic from `keys` where it has none (see
// layout::WithMnemonic): the mark only underlines, so the text shown stays
// the same.
QString WithMnemonic(std::string_view caption, std::string_view keys);

// Two-way bindings of a control to its widget. The model's state is drawn
// on every change; a person's action is forwarded to the model, which
// decides what it means. Captions keep "&" as the mnemonic mark, and the
// view adds one from `keys` where the model's caption has none.
void BindEnabledVisible(Control& control, QWidget* widget);
void BindButton(CommandButton& button, QPushButton* widget, std::string keys = "");
void BindCheckBox(CheckBox& box, ModelCheckBox* widget, std::string keys = "");
void BindOption(OptionButton& option, ModelRadioButton* widget, std::string keys = "");
// A new push button named `name` and bound to `model`.
QPushButton* NewButton(CommandButton& model, const char* name, QWidget* parent,
                       std::string keys = "");
void BindComboBox(ComboBox& box, QComboBox* widget);
// A label's caption and visibility, and with `followBold` its bold mark
// (the step labels'); other labels keep the font their view gave them.
void BindLabel(Label& label, QLabel* widget, bool followBold = false);
// The same for a label whose caption is a path, shown as a person reads it.
void BindPathLabel(Label& label, QLabel* widget, std::function<std::string(std::string_view)> shown);
void BindFrame(Label& frame, QGroupBox* widget);
void BindLineEdit(TextBox& box, QLineEdit* widget);
// A read-only multi-line box that shows a text box's text; within its
// lines, layout characters show as pictures.
void BindReadOnlyText(TextBox& box, QPlainTextEdit* widget);

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_BINDINGS_H_
