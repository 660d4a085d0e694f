#ifndef TESSALY_PLATFORM_SHORT_PATH_H_
#define TESSALY_PLATFORM_SHORT_PATH_H_

#include <string>
#include <string_view>

namespace tessaly {

// The short form of a path, as older programs need it (8.3 names on the
// desktop platform; elsewhere the path itself).
class ShortPaths {
 public:
  virtual ~ShortPaths() = default;
  // The short form of the model path `path`, or the empty text if it names
  // nothing that exists or cannot be resolved.
  virtual std::string ShortPathOf(std::string_view path) = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_SHORT_PATH_H_
