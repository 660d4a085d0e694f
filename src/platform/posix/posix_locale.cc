#include "platform/posix/posix_locale.h"

#include <langinfo.h>
#include <locale.h>

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

std::string Langinfo(nl_item item, locale_t locale, const char* fallback) {
  const char* text = locale != nullptr ? nl_langinfo_l(item, locale) : nullptr;
  return text != nullptr && *text != '\0' ? text : fallback;
}

}  // namespace

std::string SeparatorOfFormat(std::string_view format, std::string_view fallback) {
  const std::size_t first = format.find('%');
  if (first == std::string_view::npos) return std::string(fallback);
  char conversion = '\0';
  const std::size_t behind = SkipField(format, first, conversion);
  // Fields that stand for a whole date or time carry their own separator.
  if (conversion == 'D') return "/";
  if (conversion == 'T' || conversion == 'R') return ":";
  const std::size_t next = format.find('%', behind);
  if (next == std::string_view::npos || next == behind) return std::string(fallback);
  return std::string(format.substr(behind, next - behind));
}

PosixLocale::PosixLocale() {
  const locale_t user = newlocale(LC_ALL_MASK, "", static_cast<locale_t>(nullptr));
  const locale_t locale = user != nullptr ? user : newlocale(LC_ALL_MASK, "C", nullptr);
  date_ = SeparatorOfFormat(Langinfo(D_FMT, locale, "%m/%d/%y"), "/");
  time_ = SeparatorOfFormat(Langinfo(T_FMT, locale, "%H:%M:%S"), ":");
  decimal_ = Langinfo(RADIXCHAR, locale, ".");
  if (locale != nullptr) freelocale(locale);
}

}  // namespace tessaly
