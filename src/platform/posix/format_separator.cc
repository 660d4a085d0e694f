#include "platform/posix/format_separator.h"

#include <algorithm>
#include <optional>

namespace tessaly {

namespace {

// Skips one field that starts at the "%" at `pos`, with its flags and
// modifiers; returns the position behind it and its conversion letter.
std::size_t SkipField(std::string_view format, std::size_t pos, char& conversion) {
  ++pos;
  constexpr std::string_view kFlagsAndModifiers = "EO-_0^#";
  while (pos < format.size() && kFlagsAndModifiers.find(format[pos]) != std::string_view::npos) {
    ++pos;
  }
  conversion = pos < format.size() ? format[pos] : '\0';
  return pos + 1;
}

bool IsNumeric(char conversion) {
  return std::string_view("CdegGHIjklmMsSuUVwWyY").find(conversion) != std::string_view::npos;
}

// A field that stands for a whole date or time, as the C library writes it.
std::string_view SpelledOut(char conversion) {
  switch (conversion) {
    case 'D':
      return "%m/%d/%y";
    case 'F':
      return "%Y-%m-%d";
    case 'T':
      return "%H:%M:%S";
    case 'R':
      return "%H:%M";
    case 'r':
      return "%I:%M:%S %p";
    default:
      return {};
  }
}

std::string WithWholeFieldsSpelledOut(std::string_view format) {
  std::string out;
  for (std::size_t pos = 0; pos < format.size();) {
    if (format[pos] != '%') {
      out += format[pos++];
      continue;
    }
    char conversion = '\0';
    const std::size_t behind = std::min(SkipField(format, pos, conversion), format.size());
    const std::string_view spelled = SpelledOut(conversion);
    out += spelled.empty() ? format.substr(pos, behind - pos) : spelled;
    pos = behind;
  }
  return out;
}

}  // namespace

std::string SeparatorOfFormat(std::string_view format, std::string_view fallback) {
  const std::string expanded = WithWholeFieldsSpelledOut(format);
  std::optional<std::string> separator;
  bool afterNumber = false;
  std::size_t textStart = 0;
  for (std::size_t pos = expanded.find('%'); pos != std::string::npos;
       pos = expanded.find('%', textStart)) {
    char conversion = '\0';
    const std::size_t behind = std::min(SkipField(expanded, pos, conversion), expanded.size());
    // A date whose month is a name has no separator between numbers.
    if (conversion == 'b' || conversion == 'B' || conversion == 'h') return std::string(fallback);
    const bool numeric = IsNumeric(conversion);
    // Fields that touch (century and year) make one number.
    if (numeric && afterNumber && pos > textStart) {
      const std::string between = expanded.substr(textStart, pos - textStart);
      // Texts that differ name units ("年", "月"): no separator.
      if (separator && *separator != between) return std::string(fallback);
      separator = between;
    }
    afterNumber = numeric;
    textStart = behind;
  }
  return separator.value_or(std::string(fallback));
}

}  // namespace tessaly
