#ifndef TESSALY_PLATFORM_PATH_FORMS_H_
#define TESSALY_PLATFORM_PATH_FORMS_H_

#include <string>
#include <utility>
#include <string_view>

namespace tessaly {

// Model paths use the backslash as separator and treat "/" as an ordinary
// character; POSIX paths the other way round. Swapping the two maps one
// form to the other without loss: a native name holding a backslash
// survives the round trip.
// `out` may not hold `path` itself.
inline void SwapSlashesInto(std::string_view path, std::string& out) {
  out.assign(path);
  // A path holds few separators: find them rather than visit every byte.
  for (const auto& [from, to] : {std::pair{'\\', '/'}, std::pair{'/', '\\'}}) {
    for (std::size_t at = path.find(from); at != std::string_view::npos;
         at = path.find(from, at + 1)) {
      out[at] = to;
    }
  }
}

// The same in place, on the bytes of `text` from `from` on.
inline void SwapSlashesIn(std::string& text, std::size_t from = 0) {
  const bool slash = text.find('/', from) != std::string::npos;
  const bool backslash = text.find('\\', from) != std::string::npos;
  if (!slash || !backslash) {
    // A path holds one kind only, mostly: its few separators are found
    // rather than every byte visited.
    const char was = slash ? '/' : '\\';
    for (std::size_t at = text.find(was, from); at != std::string::npos; at = text.find(was, at + 1)) {
      text[at] = slash ? '\\' : '/';
    }
    return;
  }
  for (std::size_t at = from; at < text.size(); ++at) {
    if (text[at] == '\\') {
      text[at] = '/';
    } else if (text[at] == '/') {
      text[at] = '\\';
    }
  }
}

inline std::string SwapSlashes(std::string_view path) {
  std::string out;
  SwapSlashesInto(path, out);
  return out;
}

// `path` (model form) with its last name as Windows stores a name: without
// trailing periods and blanks ("README." is "README"). A name of nothing
// else stays whole, so the path never comes to name its folder; the
// folders are left as they are.
inline std::string WithNameEndAsStored(std::string_view path) {
  const std::size_t nameStart = path.rfind('\\') + 1;  // 0 when there is no folder
  const std::size_t kept = path.find_last_not_of(". ");
  if (kept == std::string_view::npos || kept < nameStart) return std::string(path);
  return std::string(path.substr(0, kept + 1));
}

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_PATH_FORMS_H_
