#ifndef TESSALY_PLATFORM_MEMORY_MEMORY_SHORT_PATHS_H_
#define TESSALY_PLATFORM_MEMORY_MEMORY_SHORT_PATHS_H_

#include <map>
#include <string>

#include "platform/short_path.h"

namespace tessaly {

// Short forms the test names; any other path has none, as a path that
// does not exist.
class MemoryShortPaths : public ShortPaths {
 public:
  void Set(std::string path, std::string shortForm) {
    shortForms_[std::move(path)] = std::move(shortForm);
  }
  std::string ShortPathOf(std::string_view path) override {
    const auto found = shortForms_.find(std::string(path));
    return found == shortForms_.end() ? std::string() : found->second;
  }

 private:
  std::map<std::string, std::string> shortForms_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_MEMORY_SHORT_PATHS_H_
