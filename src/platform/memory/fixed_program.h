#ifndef TESSALY_PLATFORM_MEMORY_FIXED_PROGRAM_H_
#define TESSALY_PLATFORM_MEMORY_FIXED_PROGRAM_H_

#include <string>

#include "platform/program_info.h"

namespace tessaly {

// The running program as a test describes it: by default the real title
// and version, installed in "C:\Program Files\Tessaly" as "Tessaly.exe",
// with an empty command line.
class FixedProgram : public RunningProgram {
 public:
  std::string folder = "C:\\Program Files\\Tessaly";
  std::string fileName = "Tessaly";
  std::string fileExtension = ".exe";
  std::string commandLine;
  ProgramVersion version = kProgramVersion;

  ProgramVersion Version() const override { return version; }
  std::string Folder() const override { return folder; }
  std::string FileName() const override { return fileName; }
  std::string FileExtension() const override { return fileExtension; }
  std::string CommandLine() const override { return commandLine; }
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_FIXED_PROGRAM_H_
