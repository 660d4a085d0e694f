#ifndef TESSALY_CONTROLS_BUTTONS_H_
#define TESSALY_CONTROLS_BUTTONS_H_

#include <cstdint>

#include "controls/control.h"

namespace tessaly {

// A push button. A click on a disabled or hidden button does nothing.
class CommandButton : public Control {
 public:
  void Click() const {
    if (enabled() && visible()) Raise(onClick);
  }
  EventRule onClick;
};

// A check box with states 0 clear, 1 ticked, 2 greyed. Assigning a new
// state is the same event as a click: the rule runs after the change.
class CheckBox : public Control {
 public:
  std::int16_t value() const { return value_; }
  void SetValue(std::int16_t value) {
    if (Update(value_, value)) Raise(onClick);
  }
  EventRule onClick;

 private:
  std::int16_t value_ = 0;
};

// An option button; choosing it is its click. Its group is kept exclusive
// by the owning form.
class OptionButton : public Control {
 public:
  bool value() const { return value_; }
  void SetValue(bool value) {
    if (Update(value_, value) && value) Raise(onClick);
  }
  EventRule onClick;

 private:
  bool value_ = false;
};

// A label or a panel: a caption and a visibility, and a click for the
// labels that take one. `bold` marks the label of the current step.
class Label : public Control {
 public:
  bool bold() const { return bold_; }
  void SetBold(bool bold) { Update(bold_, bold); }
  // Free text a form keeps with the label.
  const std::string& tag() const { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }
  // In the form's unit; only labels whose size carries meaning use it.
  long width() const { return width_; }
  void SetWidth(long width) { Update(width_, width); }
  void Click() const {
    if (enabled() && visible()) Raise(onClick);
  }
  EventRule onClick;

 private:
  bool bold_ = false;
  std::string tag_;
  long width_ = 0;
};

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_BUTTONS_H_
