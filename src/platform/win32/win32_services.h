#ifndef TESSALY_PLATFORM_WIN32_WIN32_SERVICES_H_
#define TESSALY_PLATFORM_WIN32_WIN32_SERVICES_H_

#include <cstdint>
#include <optional>
#include <string>

#include "platform/network_status.h"
#include "platform/program_info.h"
#include "platform/shell.h"
#include "platform/short_path.h"

// The small services of a Windows machine, each one system call.
namespace tessaly {

// ShellExecuteW: an empty verb, parameter text or folder is passed as none.
class Win32Shell : public Shell {
 public:
  std::int32_t Execute(const ShellRequest& request) override;
};

// InternetGetConnectedState's flags, as it gives them.
class Win32NetworkStatus : public NetworkStatus {
 public:
  std::optional<std::uint32_t> ConnectedState() override;
};

// GetShortPathNameW.
class Win32ShortPaths : public ShortPaths {
 public:
  std::string ShortPathOf(std::string_view path) override;
};

// The program file as GetModuleFileNameW names it; the command line is
// given, since the front-end takes its own options off it first.
class Win32Program : public RunningProgram {
 public:
  explicit Win32Program(std::string commandLine);

  std::string Folder() const override { return folder_; }
  std::string FileName() const override { return fileName_; }
  std::string FileExtension() const override { return ".exe"; }
  std::string CommandLine() const override { return commandLine_; }

 private:
  std::string folder_;
  std::string fileName_;
  std::string commandLine_;
};

// GetFullPathNameW: `path` made absolute against the current folder; the
// path itself if that fails.
std::string FullPathOf(std::string_view path);

// The text GetCommandLineW holds behind the program's name.
std::string CommandLineBehindProgramName();

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_WIN32_WIN32_SERVICES_H_
