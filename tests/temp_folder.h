#ifndef TESSALY_TESTS_TEMP_FOLDER_H_
#define TESSALY_TESTS_TEMP_FOLDER_H_

#include <filesystem>
#include <random>
#include <string>

namespace tessaly::testing {

// A fresh folder under `parent` (the system's temporary folder by default),
// removed with everything in it; empty when it could not be made.
class TempFolder {
 public:
  explicit TempFolder(const std::string& parent = "") {
    namespace fs = std::filesystem;
    const fs::path base = parent.empty() ? fs::temp_directory_path() : fs::path(parent);
    std::random_device random;  // a name nobody else holds; portable, unlike mkdtemp
    for (int tries = 0; tries < 100 && path_.empty(); ++tries) {
      const fs::path folder = base / ("tessaly-" + std::to_string(random()));
      std::error_code error;
      if (fs::create_directory(folder, error)) path_ = folder.string();
    }
  }
  ~TempFolder() {
    std::error_code ignored;
    if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace tessaly::testing

#endif  // TESSALY_TESTS_TEMP_FOLDER_H_
