#ifndef TESSALY_PLATFORM_POSIX_NATIVE_PATH_H_
#define TESSALY_PLATFORM_POSIX_NATIVE_PATH_H_

#include <string>
#include <string_view>

namespace tessaly {

// Model paths use the backslash as separator and treat "/" as an ordinary
// character. Swapping the two maps a model path to a native one and back,
// without loss: a native name holding a backslash survives the round trip.
std::string ToNativePath(std::string_view modelPath);
std::string ToModelPath(std::string_view nativePath);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_NATIVE_PATH_H_
