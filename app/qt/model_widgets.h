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

 protected:
  void nextCheckState() override {
    if (onPersonClick) onPersonClick();
  }
};

// A label that reacts to a click of the left button.
class ClickableLabel : public QLabel {
 public:
  using QLabel::QLabel;
  std::function<void()> onClick;

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_MODEL_WIDGETS_H_
