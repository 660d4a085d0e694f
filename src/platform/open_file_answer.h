#ifndef TESSALY_PLATFORM_OPEN_FILE_ANSWER_H_
#define TESSALY_PLATFORM_OPEN_FILE_ANSWER_H_

#include <string>
#include <string_view>
#include <vector>

#include "platform/ui.h"

namespace tessaly {

// Answers shaped as the desktop open-file dialog shapes them, for a single
// file and for several files of one folder; not accepted when they overflow
// its 257-character buffer. Front-ends whose dialog answers otherwise, and
// test doubles, build the answer with these.
OpenFileAnswer SingleFileAnswer(std::string_view path);
OpenFileAnswer MultipleFilesAnswer(std::string_view folder, const std::vector<std::string>& names);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_OPEN_FILE_ANSWER_H_
