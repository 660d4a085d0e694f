#include "system/short_path_of.h"

#include <cstddef>

namespace tessaly {

namespace {

// The receiving buffer of the system call, its terminator included: a
// longer answer does not fit, and the call then hands back nothing usable.
constexpr std::size_t kBufferSize = 300;

}  // namespace

std::string ShortPathOf(ShortPaths& shortPaths, std::string_view path) {
  std::string shortForm = shortPaths.ShortPathOf(path);
  if (shortForm.size() >= kBufferSize) return {};
  return shortForm;
}

}  // namespace tessaly
