#include "conversion/placement.h"

#include <cstdlib>
#include <optional>

#include "conversion/date_format.h"
#include "conversion/path_routines.h"
#include "conversion/split_token.h"
#include "text/case_mapping.h"
#include "text/text_ops.h"

namespace tessaly {

namespace {

constexpr std::string_view kDateMarker = "(date)";

enum class NameCase { kAsIs, kLower, kUpper };

std::string DocumentName(std::string_view path, NameCase nameCase) {
  std::string name(NamePart(path));
  if (nameCase == NameCase::kLower) name = text::LowerCase(name);
  if (nameCase == NameCase::kUpper) name = text::UpperCase(name);
  const std::size_t period = name.rfind('.');
  if (period != std::string::npos) name.erase(period);
  return name;
}

std::string Extension(std::string_view path, NameCase nameCase) {
  const std::string_view extension = FileExtensionOf(path);
  return "." + (nameCase == NameCase::kUpper ? text::UpperCase(extension)
                                             : text::LowerCase(extension));
}

std::optional<std::string> ResolveFixedWord(std::string_view text, std::string_view path,
                                            std::int32_t serial) {
  if (text == "Document Name") return DocumentName(path, NameCase::kAsIs);
  if (text == "document name") return DocumentName(path, NameCase::kLower);
  if (text == "DOCUMENT NAME") return DocumentName(path, NameCase::kUpper);
  if (text == "1 Digit Serial Number") return SerialDigits(serial, 1);
  if (text == "2 Digit Serial Number") return SerialDigits(serial, 2);
  if (text == "3 Digit Serial Number") return SerialDigits(serial, 3);
  if (text == "4 Digit Serial Number") return SerialDigits(serial, 4);
  if (text == "5 Digit Serial Number") return SerialDigits(serial, 5);
  if (text == "Serial Letter (a, b, c...)") return SerialLetters(serial);
  if (text == "Serial Letter (A, B, C...)") return text::UpperCase(SerialLetters(serial));
  if (text == "extension") return Extension(path, NameCase::kLower);
  if (text == "EXTENSION") return Extension(path, NameCase::kUpper);
  if (text == "(none)") return std::string();
  return std::nullopt;
}

// The date pattern of `text`, if its first "(date)" stands after its first
// character.
std::optional<std::string> DatePattern(std::string_view text) {
  const std::size_t marker = text.find(kDateMarker);
  if (marker == std::string_view::npos || marker == 0) return std::nullopt;
  const std::string withoutMarkers = text::ReplaceAll(text, kDateMarker, "");
  return std::string(text::TrimBlanks(withoutMarkers));
}

}  // namespace

std::string ResolvePlacement(std::string_view text, std::string_view path,
                             const ConversionOptions& options, const Clock& clock,
                             const Locale& locale) {
  if (auto fixed = ResolveFixedWord(text, path, options.serial)) return std::move(*fixed);

  std::string result(text);
  if (const auto pattern = DatePattern(text)) {
    result = FormatDate(*pattern, clock.Today(), locale.MonthAndWeekdayNames());
  }
  if (text::StartsWith(result, "Split(")) {
    if (auto piece = ResolveSplitToken(result, path)) return std::move(*piece);
  }
  return result;
}

std::string SerialLetters(std::int32_t n) {
  if (n < 1) return "-a";
  std::string letters;
  letters.reserve(static_cast<std::size_t>(n / 26 + 1));
  for (; n > 0; n -= 26) letters.push_back(n > 26 ? 'z' : static_cast<char>('a' + n - 1));
  return letters;
}

std::string SerialDigits(std::int32_t n, int digits) {
  const long long value = n;
  std::string text = std::to_string(std::llabs(value));
  if (text.size() < static_cast<std::size_t>(digits)) {
    text.insert(0, static_cast<std::size_t>(digits) - text.size(), '0');
  }
  return value < 0 ? "-" + text : text;
}

}  // namespace tessaly
