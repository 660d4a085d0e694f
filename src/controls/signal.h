#ifndef TESSALY_CONTROLS_SIGNAL_H_
#define TESSALY_CONTROLS_SIGNAL_H_

#include <functional>
#include <utility>
#include <vector>

namespace tessaly {

// A list of callbacks run in the order they were connected. Views connect
// to a control's `changed` signal to redraw; the core never asks a view.
class Signal {
 public:
  void Connect(std::function<void()> callback) { callbacks_.push_back(std::move(callback)); }
  void Emit() const {
    for (const auto& callback : callbacks_) callback();
  }

 private:
  std::vector<std::function<void()>> callbacks_;
};

// A control's event rule, as a form assigns it (`cmdAdd_Click`). Empty
// until the owning form sets it.
using EventRule = std::function<void()>;

inline void Raise(const EventRule& rule) {
  if (rule) rule();
}

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_SIGNAL_H_
