#ifndef TESSALY_CONTROLS_COMBO_BOX_H_
#define TESSALY_CONTROLS_COMBO_BOX_H_

#include <algorithm>
#include <string>
#include <vector>

#include "controls/control.h"

namespace tessaly {

// A drop-down list with free text and a tag. Setting the text runs the
// change rule; picking an item sets the text and runs the click rule alone.
class ComboBox : public Control {
 public:
  const std::string& text() const { return text_; }
  void SetText(std::string text) {
    if (Update(text_, std::move(text))) Raise(onChange);
  }
  void Pick(std::size_t index) {
    if (index >= items_.size()) return;
    Update(text_, items_[index]);
    Raise(onClick);
  }

  const std::vector<std::string>& items() const { return items_; }
  void AddItem(std::string item) {
    items_.push_back(std::move(item));
    changed.Emit();
  }
  void InsertItem(std::size_t index, std::string item) {
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(std::min(index, items_.size())),
                  std::move(item));
    changed.Emit();
  }
  void ClearItems() {
    items_.clear();
    changed.Emit();
  }

  const std::string& tag() const { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }

  EventRule onChange;
  EventRule onClick;

 private:
  std::string text_;
  std::vector<std::string> items_;
  std::string tag_;
};

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_COMBO_BOX_H_
