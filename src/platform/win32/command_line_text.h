#ifndef TESSALY_PLATFORM_WIN32_COMMAND_LINE_TEXT_H_
#define TESSALY_PLATFORM_WIN32_COMMAND_LINE_TEXT_H_

#include <string_view>

namespace tessaly {

// The text of a Windows command line behind the program's name, with the
// blanks between them skipped. The name is read as Windows reads argv[0]:
// from an opening quote to the next quote, else up to the first space or
// tab; backslashes escape nothing there.
std::string_view TextBehindProgramName(std::string_view commandLine);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_WIN32_COMMAND_LINE_TEXT_H_
