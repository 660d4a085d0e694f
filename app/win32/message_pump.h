#ifndef TESSALY_APP_WIN32_MESSAGE_PUMP_H_
#define TESSALY_APP_WIN32_MESSAGE_PUMP_H_

#include "windows_h.h"

#include <functional>

namespace tessaly::win32 {

// The message loops of the program: the main one, a modal window's, and a
// pass over what is waiting inside a long rule. Each sends keys through
// the dialog navigation of the window they are for, and tells
// `onPersonActs` of every click, key and drop first.
class MessagePump {
 public:
  std::function<void()> onPersonActs;

  // Until WM_QUIT; gives its exit code.
  int Run();
  // Until `done` holds; false if WM_QUIT came first, which is left for the
  // outer loop.
  bool RunUntil(const std::function<bool()>& done);
  // The messages waiting now, without waiting for more.
  void RunWaiting();

 private:
  void Dispatch(MSG& message);
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_MESSAGE_PUMP_H_
