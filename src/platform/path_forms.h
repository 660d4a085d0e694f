#ifndef TESSALY_PLATFORM_PATH_FORMS_H_
#define TESSALY_PLATFORM_PATH_FORMS_H_

#include <string>
#include <string_view>

namespace tessaly {

// Model paths use the backslash as separator and treat "/" as an ordinary
// character; POSIX paths the other way round. Swapping the two maps one
// form to the other without loss: a native name holding a backslash
// survives the round trip.
inline std::string SwapSlashes(std::string_view path) {
  std::string out(path);
  for (char& c : out) {
    if (c == '\\') {
      c = '/';
    } else if (c == '/') {
      c = '\\';
    }
  }
  return out;
}

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_PATH_FORMS_H_
