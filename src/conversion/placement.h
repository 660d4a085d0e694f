#ifndef TESSALY_CONVERSION_PLACEMENT_H_
#define TESSALY_CONVERSION_PLACEMENT_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "conversion/conversion_options.h"
#include "platform/clock.h"
#include "platform/locale.h"

namespace tessaly {

// The twenty items every placement box offers, in their order.
inline constexpr std::string_view kPlacementItems[] = {
    "Document Name",
    "document name",
    "DOCUMENT NAME",
    "1 Digit Serial Number",
    "2 Digit Serial Number",
    "3 Digit Serial Number",
    "4 Digit Serial Number",
    "5 Digit Serial Number",
    "Serial Letter (a, b, c...)",
    "Serial Letter (A, B, C...)",
    "extension",
    "EXTENSION",
    "mmddyy (date)",
    "mm-dd-yyyy (date)",
    "yyyy (date)",
    "yyddmm (date)",
    "mmdd (date)",
    "Split(-,1)",
    "Split(-,2)",
    "(none)",
};

// The piece of name that a box's `text` stands for, read from `path`: a
// fixed word, today's date in a pattern ending "(date)" (its names in the
// language of `locale`), a piece cut out by Split(separator,n), or else the
// text itself. Never fails.
std::string ResolvePlacement(std::string_view text, std::string_view path,
                             const ConversionOptions& options, const Clock& clock,
                             const Locale& locale);

// The letter count: a run of "z" and a last letter (27 gives za); "-a"
// below 1.
std::string SerialLetters(std::int32_t n);

// `n` with at least `digits` digits, zero-filled; never cut.
std::string SerialDigits(std::int32_t n, int digits);

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_PLACEMENT_H_
