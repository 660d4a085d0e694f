#ifndef TESSALY_TOOLS_SCREENSHOTS_PNG_FILE_H_
#define TESSALY_TOOLS_SCREENSHOTS_PNG_FILE_H_

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tessaly {

// Writes `rgb` (rows top to bottom, three bytes a pixel) as a PNG. The
// data is stored, not compressed: the pictures are for looking at, and the
// program needs no compression library.
bool WritePng(const std::filesystem::path& file, int width, int height, const std::vector<std::uint8_t>& rgb);

}  // namespace tessaly

#endif  // TESSALY_TOOLS_SCREENSHOTS_PNG_FILE_H_
