#ifndef TESSALY_CONTROLS_SIGNAL_H_
#define TESSALY_CONTROLS_SIGNAL_H_

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <utility>

namespace tessaly {

namespace signal_detail {

struct Slot {
  std::uint64_t id;  // 0 once disconnected
  std::function<void()> callback;
};

struct Connected {
  // A deque keeps each slot in place while a callback connects another,
  // so the callback running is never moved under it.
  std::deque<Slot> list;
  std::uint64_t nextId = 1;
  int emitting = 0;
  bool holesLeft = false;  // disconnected slots wait for the emits to end

  void Remove(std::uint64_t id) {
    for (auto slot = list.begin(); slot != list.end(); ++slot) {
      if (slot->id != id) continue;
      if (emitting > 0) {
        // Its callback may be the one running: it goes when the emit ends.
        slot->id = 0;
        holesLeft = true;
      } else {
        list.erase(slot);
      }
      return;
    }
  }
  void DropHoles() {
    std::erase_if(list, [](const Slot& slot) { return slot.id == 0; });
    holesLeft = false;
  }
};

// Counts an emit while it runs, also when a callback throws.
class Emitting {
 public:
  explicit Emitting(Connected& connected) : connected_(connected) { ++connected_.emitting; }
  Emitting(const Emitting&) = delete;
  Emitting& operator=(const Emitting&) = delete;
  ~Emitting() {
    if (--connected_.emitting == 0 && connected_.holesLeft) connected_.DropHoles();
  }

 private:
  Connected& connected_;
};

}  // namespace signal_detail

// The handle of one callback on a Signal. It disconnects the callback when
// it goes or on Disconnect(), so a view that dies before its model leaves
// nothing behind; Release() leaves the callback for the signal's whole
// life. Safe to keep after the signal is gone.
class [[nodiscard]] Connection {
 public:
  Connection() = default;
  Connection(std::weak_ptr<signal_detail::Connected> connected, std::uint64_t id)
      : connected_(std::move(connected)), id_(id) {}
  Connection(Connection&& other) noexcept
      : connected_(std::move(other.connected_)), id_(std::exchange(other.id_, 0)) {}
  Connection& operator=(Connection&& other) noexcept {
    if (this != &other) {
      Disconnect();
      connected_ = std::move(other.connected_);
      id_ = std::exchange(other.id_, 0);
    }
    return *this;
  }
  ~Connection() { Disconnect(); }

  void Disconnect() {
    const std::shared_ptr<signal_detail::Connected> connected = connected_.lock();
    const std::uint64_t id = id_;
    Release();
    if (connected != nullptr) connected->Remove(id);
  }
  void Release() {
    id_ = 0;
    connected_.reset();
  }

 private:
  std::weak_ptr<signal_detail::Connected> connected_;
  std::uint64_t id_ = 0;
};

// A list of callbacks run in the order they were connected. Views connect
// to a control's `changed` signal to redraw; the core never asks a view.
class Signal {
 public:
  Signal() = default;
  // A copy would share the callbacks; a move takes them along.
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;
  Signal(Signal&&) = default;
  Signal& operator=(Signal&&) = default;

  Connection Connect(std::function<void()> callback) {
    if (connected_ == nullptr) connected_ = std::make_shared<signal_detail::Connected>();
    const std::uint64_t id = connected_->nextId++;
    connected_->list.push_back({id, std::move(callback)});
    return Connection(connected_, id);
  }

  // Runs the callbacks connected now; one connected meanwhile waits for the
  // next emit, one disconnected meanwhile is not run.
  void Emit() const {
    if (connected_ == nullptr) return;
    // A callback may end the signal: its callbacks stay until the emit ends.
    const std::shared_ptr<signal_detail::Connected> connected = connected_;
    const signal_detail::Emitting emitting(*connected);
    const std::size_t count = connected->list.size();
    for (std::size_t i = 0; i < count; ++i) {
      if (connected->list[i].id != 0) connected->list[i].callback();
    }
  }

 private:
  std::shared_ptr<signal_detail::Connected> connected_;
};

// A control's event rule, as a form assigns it (`cmdAdd_Click`). Empty
// until the owning form sets it.
using EventRule = std::function<void()>;

inline void Raise(const EventRule& rule) {
  if (rule) rule();
}

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_SIGNAL_H_
