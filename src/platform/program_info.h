#ifndef TESSALY_PLATFORM_PROGRAM_INFO_H_
#define TESSALY_PLATFORM_PROGRAM_INFO_H_

#include <string>
#include <string_view>

namespace tessaly {

// The program's title, also the title of its message boxes.
inline constexpr std::string_view kProgramTitle = "Tessaly";

struct ProgramVersion {
  int major = 0;
  int minor = 0;
  int revision = 0;
  friend bool operator==(const ProgramVersion&, const ProgramVersion&) = default;
};

inline constexpr ProgramVersion kProgramVersion{1, 0, 14};

// Facts about the running program.
class RunningProgram {
 public:
  virtual ~RunningProgram() = default;
  virtual std::string Title() const { return std::string(kProgramTitle); }
  virtual ProgramVersion Version() const { return kProgramVersion; }
  // The model path of the folder that holds the program's file, with no
  // closing backslash unless it is a root.
  virtual std::string Folder() const = 0;
  // The name of the program's file, without folder and extension.
  virtual std::string FileName() const = 0;
  // What the platform puts behind a program's name: ".exe" on the desktop
  // platform, nothing on POSIX.
  virtual std::string FileExtension() const = 0;
  // The command line behind the program's name, as one text.
  virtual std::string CommandLine() const = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_PROGRAM_INFO_H_
