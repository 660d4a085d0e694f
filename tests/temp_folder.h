#ifndef TESSALY_TESTS_TEMP_FOLDER_H_
#define TESSALY_TESTS_TEMP_FOLDER_H_

#include <stdlib.h>

#include <filesystem>
#include <string>

namespace tessaly::testing {

// A fresh folder under `parent` (the system's temporary folder by default),
// removed with everything in it; empty when it could not be made.
class TempFolder {
 public:
  explicit TempFolder(const std::string& parent = "") {
    std::string pattern =
        (parent.empty() ? std::filesystem::temp_directory_path().string() : parent) + "/tessaly-XXXXXX";
    if (mkdtemp(pattern.data()) != nullptr) path_ = pattern;
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
