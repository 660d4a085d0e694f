#ifndef TESSALY_PLATFORM_PROGRAM_INFO_H_
#define TESSALY_PLATFORM_PROGRAM_INFO_H_

#include <string_view>

namespace tessaly {

// The program's title, also the title of its message boxes.
inline constexpr std::string_view kProgramTitle = "Tessaly";

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_PROGRAM_INFO_H_
