#ifndef TESSALY_APP_QT_MODEL_WIDGETS_H_
#define TESSALY_APP_QT_MODEL_WIDGETS_H_

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <functional>
#include <utility>

namespace tessaly::qt {

// Buttons whose state belongs to a model: a person's click asks the model
// (`onPersonClick`) and the state drawn is whatever the model then holds,
// so Qt's own toggling never runs.
class ModelCheckBox : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;
  std::function<void()> onPersonClick;

 protected:
  void nextCheckState() override {
    if (onPersonClick) onPersonClick();
  }
};

class ModelRadioButton : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;
  std::function<void()> onPersonClick;
  // Draws the model's state, also a clear one that Qt would keep checked
  // as the last checked button of its group.
  void ShowChecked(bool checked);

 protected:
  void nextCheckState() override {
    if (onPersonClick) onPersonClick();
  }
};

// A label that works as a button: a click of the left button, or Space
// once Tab has brought the focus to it, runs `onClick`, and it is read out
// as a button.
class ClickableLabel : public QLabel {
 public:
  explicit ClickableLabel(QWidget* parent);
  std::function<void()> onClick;

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  // The label, and a frame around it while it has the focus.
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_MODEL_WIDGETS_H_
