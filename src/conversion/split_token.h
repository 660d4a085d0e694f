#ifndef TESSALY_CONVERSION_SPLIT_TOKEN_H_
#define TESSALY_CONVERSION_SPLIT_TOKEN_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessaly {

// Reads `token` (which begins "Split(") as Split(separator,n) and gives the
// n-th piece of `path` cut at the separator, counting from 1; nothing if
// any step of the reading fails.
std::optional<std::string> ResolveSplitToken(std::string_view token, std::string_view path);

// A number field as the desktop runtime converts it to a 16-bit integer:
// blanks around it, an optional sign, decimals rounded half to even.
// Nothing if it is no number or out of range.
std::optional<std::int16_t> ParseInteger16(std::string_view field);

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_SPLIT_TOKEN_H_
