#ifndef TESSALY_PLATFORM_POSIX_FORMAT_SEPARATOR_H_
#define TESSALY_PLATFORM_POSIX_FORMAT_SEPARATOR_H_

#include <string>
#include <string_view>

namespace tessaly {

// The text that stands between the numeric fields of a strftime format,
// such as "/" of "%m/%d/%y"; `fallback` where there is none, where the
// texts differ, as words of units do ("%Y年%m月%d日"), or where the month
// is a name.
std::string SeparatorOfFormat(std::string_view format, std::string_view fallback);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_FORMAT_SEPARATOR_H_
