#ifndef TESSALY_SYSTEM_SHORT_PATH_OF_H_
#define TESSALY_SYSTEM_SHORT_PATH_OF_H_

#include <string>
#include <string_view>

#include "platform/short_path.h"

namespace tessaly {

// The short form of `path` as `shortPaths` gives it, or the empty text when
// the path names nothing that exists or its short form is longer than the
// 299 characters older readers of it can take.
std::string ShortPathOf(ShortPaths& shortPaths, std::string_view path);

}  // namespace tessaly

#endif  // TESSALY_SYSTEM_SHORT_PATH_OF_H_
