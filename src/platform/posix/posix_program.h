#ifndef TESSALY_PLATFORM_POSIX_POSIX_PROGRAM_H_
#define TESSALY_PLATFORM_POSIX_POSIX_PROGRAM_H_

#include <string>

#include "platform/program_info.h"

namespace tessaly {

// The running program as the system knows it. The front-end gives the
// command line, which it rebuilds from the words the shell split.
class PosixProgram : public RunningProgram {
 public:
  explicit PosixProgram(std::string commandLine);

  std::string Folder() const override { return folder_; }
  std::string FileName() const override { return fileName_; }
  std::string FileExtension() const override { return {}; }
  std::string CommandLine() const override { return commandLine_; }

 private:
  std::string folder_;
  std::string fileName_;
  std::string commandLine_;
};

// The model folder and the name without extension of the native path of a
// program file.
struct ProgramLocation {
  std::string folder;
  std::string fileName;
};
ProgramLocation LocationOfProgram(const std::string& nativePath);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_POSIX_PROGRAM_H_
