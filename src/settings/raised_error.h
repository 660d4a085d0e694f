#ifndef TESSALY_SETTINGS_RAISED_ERROR_H_
#define TESSALY_SETTINGS_RAISED_ERROR_H_

#include <optional>
#include <string>

namespace tessaly {

// An error raised by number, which abandons the call that raised it and is
// left to whoever called it to stop at or pass on. The logic has no
// exceptions, so it travels in the result.
struct RaisedError {
  int number = 0;
  std::string description;
  friend bool operator==(const RaisedError&, const RaisedError&) = default;
};

// The answer of a call that can raise: its value, meaningful only when
// nothing was raised, or the error it raised.
template <typename T>
struct OrRaised {
  T value{};
  std::optional<RaisedError> raised;
};

}  // namespace tessaly

#endif  // TESSALY_SETTINGS_RAISED_ERROR_H_
