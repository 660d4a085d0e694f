#include "model_widgets.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace tessaly::qt {

namespace {

// A ClickableLabel to a screen reader: a button named by its text, which
// can be pressed.
class ClickableLabelAccessible : public QAccessibleWidget {
 public:
  explicit ClickableLabelAccessible(ClickableLabel* label)
      : QAccessibleWidget(label, QAccessible::Button) {}

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Name && widget()->accessibleName().isEmpty()) {
      return static_cast<const QLabel*>(widget())->text();
    }
    return QAccessibleWidget::text(kind);
  }
  QStringList actionNames() const override {
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    auto* label = static_cast<ClickableLabel*>(widget());
    if (action == pressAction() && label->onClick) {
      label->onClick();
    } else {
      QAccessibleWidget::doAction(action);
    }
  }
};

QAccessibleInterface* ClickableLabelInterface(const QString&, QObject* object) {
  auto* label = dynamic_cast<ClickableLabel*>(object);
  return label != nullptr ? new ClickableLabelAccessible(label) : nullptr;
}

}  // namespace

void ModelRadioButton::ShowChecked(bool checked) {
  if (isChecked() == checked) return;
  const bool exclusive = autoExclusive();
  setAutoExclusive(false);
  setChecked(checked);
  setAutoExclusive(exclusive);
}

ClickableLabel::ClickableLabel(QWidget* parent) : QLabel(parent) {
  static const bool installed = (QAccessible::installFactory(ClickableLabelInterface), true);
  (void)installed;
  setFocusPolicy(Qt::StrongFocus);
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) &&
      onClick) {
    onClick();
  }
  QLabel::mouseReleaseEvent(event);
}

// Space, as on a button; Return is left to the window's default button.
void ClickableLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier && onClick) {
    onClick();
    return;
  }
  QLabel::keyPressEvent(event);
}

void ClickableLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DotLine));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace tessaly::qt
