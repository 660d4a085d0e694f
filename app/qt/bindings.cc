#include "bindings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <algorithm>
#include <memory>

#include "model_widgets.h"
#include "text/visible_text.h"
#include "wizard/layout/layout.h"

namespace tessaly::qt {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString ToQtLines(std::string_view text) {
  QString converted = ToQt(text);
  converted.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  converted.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  return converted;
}

std::string FromQt(const QString& text) { return text.toStdString(); }

QString ToQtShown(std::string_view text) { return ToQt(text::Pictured(text, text::Layout::kNone)); }

void HoldUntilGone(QObject* owner, Connection connection) {
  auto held = std::make_shared<Connection>(std::move(connection));
  QObject::connect(owner, &QObject::destroyed, [held] { held->Disconnect(); });
}

QString WithMnemonic(std::string_view caption, std::string_view keys) {
  return ToQt(layout::WithMnemonic(caption, keys));
}

void BindEnabledVisible(Control& control, QWidget* widget) {
  Follow(control.changed, widget, [&control, widget] {
    widget->setEnabled(control.enabled());
    // Hidden by the model means hidden; shown by the model means shown as
    // far as its page is. setVisible(true) on a widget whose page is off
    // screen would make it a window of its own.
    widget->setHidden(!control.visible());
  });
}

void BindButton(CommandButton& button, QPushButton* widget, std::string keys) {
  Follow(button.changed, widget, [&button, widget, keys = std::move(keys)] {
    widget->setText(WithMnemonic(button.caption(), keys));
    widget->setEnabled(button.enabled());
    widget->setHidden(!button.visible());
  });
  QObject::connect(widget, &QPushButton::clicked, widget, [&button] { button.Click(); });
}

QPushButton* NewButton(CommandButton& model, const char* name, QWidget* parent, std::string keys) {
  auto* button = new QPushButton(parent);
  button->setObjectName(QString::fromLatin1(name));
  BindButton(model, button, std::move(keys));
  return button;
}

void BindCheckBox(CheckBox& box, ModelCheckBox* widget, std::string keys) {
  widget->setTristate(true);  // to draw state 2; a click still gives 0 or 1
  // A click ticks a box that is clear or greyed and clears a ticked one.
  widget->onPersonClick = [&box] { box.SetValue(box.value() == 1 ? 0 : 1); };
  Follow(box.changed, widget, [&box, widget, keys = std::move(keys)] {
    widget->setText(WithMnemonic(box.caption(), keys));
    widget->setEnabled(box.enabled());
    widget->setHidden(!box.visible());
    widget->setCheckState(box.value() == 1   ? Qt::Checked
                          : box.value() == 2 ? Qt::PartiallyChecked
                                             : Qt::Unchecked);
  });
}

void BindOption(OptionButton& option, ModelRadioButton* widget, std::string keys) {
  // Exclusive for Qt, so that it is read out as an option button and the
  // arrow keys move through its group; the form keeps the group exclusive.
  widget->setAutoExclusive(true);
  widget->onPersonClick = [&option] { option.SetValue(true); };
  Follow(option.changed, widget, [&option, widget, keys = std::move(keys)] {
    widget->setText(WithMnemonic(option.caption(), keys));
    widget->setEnabled(option.enabled());
    widget->setHidden(!option.visible());
    widget->ShowChecked(option.value());
  });
}

void BindComboBox(ComboBox& box, QComboBox* widget) {
  widget->setEditable(true);
  widget->setInsertPolicy(QComboBox::NoInsert);
  // Typing must reach the model letter by letter, as typed: no completion.
  widget->setCompleter(nullptr);
  Follow(box.changed, widget, [&box, widget] {
    const QSignalBlocker quiet(widget);
    const auto& items = box.items();
    bool same = widget->count() == static_cast<int>(items.size());
    for (int i = 0; same && i < widget->count(); ++i) same = widget->itemText(i) == ToQt(items[i]);
    if (!same) {
      widget->clear();
      for (const std::string& item : items) widget->addItem(ToQt(item));
    }
    const QString text = ToQt(box.text());
    if (widget->currentText() != text) {
      // Keep the caret where the person was typing when the model changed
      // the text around it.
      QLineEdit* edit = widget->lineEdit();
      const int caret = edit->cursorPosition();
      widget->setCurrentIndex(-1);
      widget->setEditText(text);
      edit->setCursorPosition(std::min(caret, static_cast<int>(text.size())));
    }
    widget->setEnabled(box.enabled());
    widget->setHidden(!box.visible());
  });
  QObject::connect(widget->lineEdit(), &QLineEdit::textEdited, widget,
                   [&box](const QString& text) { box.SetText(FromQt(text)); });
  QObject::connect(widget, &QComboBox::activated, widget,
                   [&box](int index) {
                     if (index >= 0) box.Pick(static_cast<std::size_t>(index));
                   });
}

void BindPathLabel(Label& label, QLabel* widget,
                   std::function<std::string(std::string_view)> shown) {
  widget->setTextFormat(Qt::PlainText);
  Follow(label.changed, widget, [&label, widget, shown = std::move(shown)] {
    widget->setText(ToQtShown(shown(label.caption())));
    widget->setHidden(!label.visible());
  });
}

void BindLabel(Label& label, QLabel* widget, bool followBold) {
  widget->setTextFormat(Qt::PlainText);
  Follow(label.changed, widget, [&label, widget, followBold] {
    widget->setText(ToQtLines(label.caption()));
    if (followBold && widget->font().bold() != label.bold()) {
      QFont font = widget->font();
      font.setBold(label.bold());
      widget->setFont(font);
    }
    widget->setEnabled(label.enabled());
    widget->setHidden(!label.visible());
  });
}

void BindFrame(Label& frame, QGroupBox* widget) {
  Follow(frame.changed, widget, [&frame, widget] {
    widget->setTitle(ToQt(frame.caption()));
    widget->setEnabled(frame.enabled());
    widget->setHidden(!frame.visible());
  });
}

void BindLineEdit(TextBox& box, QLineEdit* widget) {
  Follow(box.changed, widget, [&box, widget] {
    const QString text = ToQt(box.text());
    if (widget->text() != text) widget->setText(text);
    if (box.selLength() > 0) {
      widget->setSelection(static_cast<int>(box.selStart()), static_cast<int>(box.selLength()));
    }
    widget->setEnabled(box.enabled());
    widget->setHidden(!box.visible());
  });
  QObject::connect(widget, &QLineEdit::textEdited, widget,
                   [&box](const QString& text) { box.SetText(FromQt(text)); });
}

void BindReadOnlyText(TextBox& box, QPlainTextEdit* widget) {
  widget->setReadOnly(true);
  Follow(box.changed, widget, [&box, widget] {
    const QString text = ToQtLines(text::Pictured(box.text(), text::Layout::kLineEnds));
    if (widget->toPlainText() != text) widget->setPlainText(text);
    widget->setHidden(!box.visible());
  });
}

}  // namespace tessaly::qt
