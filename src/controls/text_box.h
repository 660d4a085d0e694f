#ifndef TESSALY_CONTROLS_TEXT_BOX_H_
#define TESSALY_CONTROLS_TEXT_BOX_H_

#include <cstddef>
#include <string>

#include "controls/control.h"

namespace tessaly {

// A one-line text box with its selection, in characters.
class TextBox : public Control {
 public:
  const std::string& text() const { return text_; }
  void SetText(std::string text) {
    if (Update(text_, std::move(text))) Raise(onChange);
  }
  std::size_t selStart() const { return selStart_; }
  std::size_t selLength() const { return selLength_; }
  void Select(std::size_t start, std::size_t length) {
    selStart_ = start;
    selLength_ = length;
    changed.Emit();
  }
  // Gaining the focus runs the form's rule for it.
  void Focus() const { Raise(onGotFocus); }

  EventRule onChange;
  EventRule onGotFocus;

 private:
  std::string text_;
  std::size_t selStart_ = 0;
  std::size_t selLength_ = 0;
};

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_TEXT_BOX_H_
