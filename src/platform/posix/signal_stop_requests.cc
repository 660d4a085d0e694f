#include "platform/posix/signal_stop_requests.h"

#include <atomic>

namespace tessaly {

namespace {

constexpr std::array<int, 3> kStopSignals = {SIGINT, SIGTERM, SIGHUP};

// What the handler may touch: the first signal, and which signals it owns.
std::atomic<int> gReceived{0};
std::array<std::atomic<bool>, 3> gHandled{};
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free,
              "a signal handler may touch lock-free atomics only");

void SetAction(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  for (const int blocked : kStopSignals) sigaddset(&action.sa_mask, blocked);
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

// Notes the first request; from then on any of them ends the program.
extern "C" void OnStopSignal(int signal) {
  int none = 0;
  gReceived.compare_exchange_strong(none, signal);
  for (std::size_t i = 0; i < kStopSignals.size(); ++i) {
    if (gHandled[i]) SetAction(kStopSignals[i], SIG_DFL);
  }
}

}  // namespace

SignalStopRequests::SignalStopRequests() {
  gReceived = 0;
  for (std::size_t i = 0; i < kStopSignals.size(); ++i) {
    sigaction(kStopSignals[i], nullptr, &before_[i]);
    gHandled[i] = before_[i].sa_handler != SIG_IGN;
    if (gHandled[i]) SetAction(kStopSignals[i], OnStopSignal);
  }
}

SignalStopRequests::~SignalStopRequests() {
  for (std::size_t i = 0; i < kStopSignals.size(); ++i) {
    if (gHandled[i].exchange(false)) sigaction(kStopSignals[i], &before_[i], nullptr);
  }
}

bool SignalStopRequests::Requested() const { return gReceived != 0; }

int SignalStopRequests::ExitStatus() const {
  const int signal = gReceived;
  return signal == 0 ? 0 : 128 + signal;
}

}  // namespace tessaly
