#ifndef TESSALY_PLATFORM_FILE_SYSTEM_H_
#define TESSALY_PLATFORM_FILE_SYSTEM_H_

#include <cstdint>
#include <optional>
#include <string_view>

namespace tessaly {

// Attribute bits of a path, as the desktop platform reports them.
namespace attr {
inline constexpr std::uint32_t kReadOnly = 1;
inline constexpr std::uint32_t kHidden = 2;
inline constexpr std::uint32_t kSystem = 4;
inline constexpr std::uint32_t kDirectory = 16;
inline constexpr std::uint32_t kArchive = 32;
inline constexpr std::uint32_t kNormal = 128;
}  // namespace attr

// The file operations the program needs. Paths are in model form: the
// backslash is the only separator. Abstract so it can be replaced in tests;
// the real one is PosixFileSystem.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // The attribute bits of `path`, or nothing if it does not exist or cannot
  // be looked at.
  virtual std::optional<std::uint32_t> GetAttributes(std::string_view path) = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_FILE_SYSTEM_H_
