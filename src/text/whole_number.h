#ifndef TESSALY_TEXT_WHOLE_NUMBER_H_
#define TESSALY_TEXT_WHOLE_NUMBER_H_

#include <cstdint>
#include <optional>
#include <string_view>

namespace tessaly::text {

// A text converted to a 16-bit whole number the way the desktop runtime
// does it: blanks around it, an optional sign, decimals rounded half to
// even. Nothing if it is no number or out of range.
std::optional<std::int16_t> ParseInteger16(std::string_view field);

}  // namespace tessaly::text

#endif  // TESSALY_TEXT_WHOLE_NUMBER_H_
