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

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_SPLIT_TOKEN_H_
