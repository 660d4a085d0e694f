#ifndef TESSALY_PLATFORM_SEARCH_PATTERN_H_
#define TESSALY_PLATFORM_SEARCH_PATTERN_H_

#include <string>
#include <string_view>

// How a directory search reads its pattern, shared by every file system
// backend so that all of them find the same names.
namespace tessaly::search_pattern {

// A search pattern taken apart: the folder (without its closing backslash,
// except for a root such as "\" or "C:\") and the name pattern behind it.
struct Parts {
  std::string folder;
  std::string name;
};

// Splits at the last backslash. Without one, the folder is empty: the
// current folder.
Parts Split(std::string_view pattern);

// Whether `name` matches `pattern`, ignoring case: "*" stands for any run of
// characters, "?" for exactly one. As on the desktop platform, a pattern
// that ends in ".*" or "." also matches a name without a period when the
// rest of the pattern matches the whole name, so "*.*" matches every name.
bool Matches(std::string_view name, std::string_view pattern);

}  // namespace tessaly::search_pattern

#endif  // TESSALY_PLATFORM_SEARCH_PATTERN_H_
