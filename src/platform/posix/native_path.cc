#include "platform/posix/native_path.h"

#include "platform/path_forms.h"

namespace tessaly {

std::string ToNativePath(std::string_view modelPath) { return SwapSlashes(modelPath); }

std::string ToModelPath(std::string_view nativePath) { return SwapSlashes(nativePath); }

}  // namespace tessaly
