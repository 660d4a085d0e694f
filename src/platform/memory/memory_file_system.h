#ifndef TESSALY_PLATFORM_MEMORY_MEMORY_FILE_SYSTEM_H_
#define TESSALY_PLATFORM_MEMORY_MEMORY_FILE_SYSTEM_H_

#include <cstdint>
#include <map>
#include <string>

#include "platform/file_system.h"

namespace tessaly {

// A file system held in memory, for tests. Paths are model paths; a folder
// need not be added before the files in it.
class MemoryFileSystem : public FileSystem {
 public:
  enum class LetterCase { kIgnore, kExact };

  explicit MemoryFileSystem(LetterCase letterCase = LetterCase::kIgnore)
      : letterCase_(letterCase) {}

  void AddFile(std::string_view path, std::uint32_t attributes = attr::kArchive);
  void AddDirectory(std::string_view path);
  void Remove(std::string_view path);

  std::optional<std::uint32_t> GetAttributes(std::string_view path) override;

 private:
  std::string Key(std::string_view path) const;

  LetterCase letterCase_;
  std::map<std::string, std::uint32_t> entries_;  // by Key(path)
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_MEMORY_FILE_SYSTEM_H_
