#include "platform/posix/native_path.h"

namespace tessaly {

namespace {

std::string SwapSlashes(std::string_view path) {
  std::string out(path);
  for (char& c : out) {
    if (c == '\\') {
      c = '/';
    } else if (c == '/') {
      c = '\\';
    }
  }
  return out;
}

}  // namespace

std::string ToNativePath(std::string_view modelPath) { return SwapSlashes(modelPath); }

std::string ToModelPath(std::string_view nativePath) { return SwapSlashes(nativePath); }

}  // namespace tessaly
