#ifndef TESSALY_TEXT_CASE_MAPPING_H_
#define TESSALY_TEXT_CASE_MAPPING_H_

#include <string>
#include <string_view>

namespace tessaly::text {

// One-to-one Unicode case mappings. Characters without a single-character
// mapping, and invalid bytes, are returned unchanged.
char32_t UpperChar(char32_t code);
char32_t LowerChar(char32_t code);

// The form two characters share when they are equal ignoring case.
char32_t FoldChar(char32_t code);

// The whole text in upper or lower case, character by character; invalid
// bytes pass through unchanged.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

// The first character in upper case, the rest as `rest` says.
enum class RestOfWord { kUnchanged, kLower };
std::string CapitalizeFirst(std::string_view text, RestOfWord rest);

}  // namespace tessaly::text

#endif  // TESSALY_TEXT_CASE_MAPPING_H_
