#ifndef TESSALY_CONTROLS_CONTROL_H_
#define TESSALY_CONTROLS_CONTROL_H_

#include <string>

#include "controls/signal.h"

namespace tessaly {

// What every control has: a caption, and whether it is enabled and visible.
// Every change of state emits `changed` so a view can redraw.
class Control {
 public:
  const std::string& caption() const { return caption_; }
  bool enabled() const { return enabled_; }
  bool visible() const { return visible_; }

  void SetCaption(std::string caption) { Update(caption_, std::move(caption)); }
  void SetEnabled(bool enabled) { Update(enabled_, enabled); }
  void SetVisible(bool visible) { Update(visible_, visible); }

  Signal changed;

 protected:
  // Assigns and emits `changed` if the value differs; true when it did.
  template <typename T>
  bool Update(T& field, T value) {
    if (field == value) return false;
    field = std::move(value);
    changed.Emit();
    return true;
  }

 private:
  std::string caption_;
  bool enabled_ = true;
  bool visible_ = true;
};

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_CONTROL_H_
