#ifndef TESSALY_CONVERSION_NUMBERED_REPLACE_H_
#define TESSALY_CONVERSION_NUMBERED_REPLACE_H_

#include <string>
#include <string_view>

namespace tessaly {

// Applies one active list row to `text`. A find text without "#" is one
// replace-all. With "#", for j = 0 to 100 two replace-alls run in turn: the
// find text with each "#" as j zero-filled to two digits, then as j plain.
void ApplyListEntry(std::string& text, std::string_view find, std::string_view replacement);

// Removes "(i)", "[i]" and "{i}" for i = 0 to 100 in one ascending pass, so
// a bracket that a later removal brings together stays if its number has
// gone by.
void RemoveBracketNumbers(std::string& text);

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_NUMBERED_REPLACE_H_
