#ifndef TESSALY_TESTS_PLATFORM_FILE_SYSTEM_BACKENDS_H_
#define TESSALY_TESTS_PLATFORM_FILE_SYSTEM_BACKENDS_H_

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "temp_folder.h"

namespace tessaly::testing {

// A file system under test, with the means to set a scene on it behind its
// back. Paths are model paths under Root().
class FileSystemBackend {
 public:
  virtual ~FileSystemBackend() = default;
  virtual FileSystem& fs() = 0;
  // An empty folder that the tests work in, without a closing backslash.
  virtual std::string Root() const = 0;
  virtual bool IgnoresCase() const = 0;
  // `attributes` may ask for kReadOnly, or kSystem (a file that is neither
  // regular nor a folder); hidden files are named with a leading ".".
  virtual void MakeFile(std::string_view path, std::string_view contents = "",
                        std::uint32_t attributes = 0) = 0;
  virtual void MakeFolder(std::string_view path) = 0;
  // A second name for the file `existing`: a hard link.
  virtual void MakeLink(std::string_view existing, std::string_view path) = 0;
  // The contents of the file spelled exactly `path`, if there is one.
  virtual std::optional<std::string> Read(std::string_view path) = 0;
  // The names in `folder` as the disk spells them, sorted.
  virtual std::vector<std::string> Names(std::string_view folder) = 0;
  // Runs `hook` once, between the next rename's checks and its move.
  virtual void BeforeNextRename(std::function<void()> hook) = 0;
};

#ifdef _WIN32
std::unique_ptr<FileSystemBackend> MakeWin32Backend();
#else
std::unique_ptr<FileSystemBackend> MakePosixBackend();
// Null where no case-folding file system can be made on this machine.
std::unique_ptr<FileSystemBackend> MakeCaseFoldingPosixBackend();
#endif

}  // namespace tessaly::testing

#endif  // TESSALY_TESTS_PLATFORM_FILE_SYSTEM_BACKENDS_H_
