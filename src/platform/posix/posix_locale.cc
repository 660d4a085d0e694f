#include "platform/posix/posix_locale.h"

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <cstdlib>
#include <optional>

#include "platform/posix/format_separator.h"

namespace tessaly {

namespace {

std::string Langinfo(nl_item item, locale_t locale, const char* fallback) {
  const char* text = locale != nullptr ? nl_langinfo_l(item, locale) : nullptr;
  return text != nullptr && *text != '\0' ? text : fallback;
}

// `text` in `codeset` as UTF-8; nothing if it cannot be converted.
std::optional<std::string> InUtf8(std::string_view text, const std::string& codeset) {
  const iconv_t converter = iconv_open("UTF-8", codeset.c_str());
  if (converter == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
  std::string in(text);
  std::string out(text.size() * 4, '\0');
  char* inAt = in.data();
  char* outAt = out.data();
  std::size_t inLeft = in.size();
  std::size_t outLeft = out.size();
  const std::size_t converted = iconv(converter, &inAt, &inLeft, &outAt, &outLeft);
  iconv_close(converter);
  if (converted == static_cast<std::size_t>(-1)) return std::nullopt;
  out.resize(out.size() - outLeft);
  return out;
}

// The names of months and weekdays of `locale`'s LC_TIME, converted from
// its LC_CTYPE's character set; English when there is no locale or any
// name is missing or unreadable, so a date never mixes two languages.
DateNames DateNamesOf(locale_t locale) {
  if (locale == nullptr) return EnglishDateNames();
  const std::string codeset = Langinfo(CODESET, locale, "UTF-8");
  DateNames names;
  bool complete = true;
  const auto read = [&](nl_item item, std::string& name) {
    auto text = InUtf8(Langinfo(item, locale, ""), codeset);
    if (text && !text->empty()) {
      name = std::move(*text);
    } else {
      complete = false;
    }
  };
  for (int i = 0; i < 12; ++i) {
    read(MON_1 + i, names.months[i]);
    read(ABMON_1 + i, names.monthsShort[i]);
  }
  for (int i = 0; i < 7; ++i) {
    read(DAY_1 + i, names.weekdays[i]);
    read(ABDAY_1 + i, names.weekdaysShort[i]);
  }
  return complete ? names : EnglishDateNames();
}

// The locale name LC_TIME stands for, read from the environment as the C
// library reads it.
std::string TimeLocaleName() {
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return "C";
}

// The date names of the user's LC_TIME. The character set is that of the
// same locale name, since LC_TIME may be set apart from LC_CTYPE (de_DE in
// ISO-8859-1 beside a UTF-8 LANG).
DateNames UserDateNames() {
  const locale_t locale =
      newlocale(LC_CTYPE_MASK | LC_TIME_MASK, TimeLocaleName().c_str(), nullptr);
  const DateNames names = DateNamesOf(locale);
  if (locale != nullptr) freelocale(locale);
  return names;
}

SettledLocale UserSettings() {
  const locale_t user = newlocale(LC_ALL_MASK, "", static_cast<locale_t>(nullptr));
  const locale_t locale = user != nullptr ? user : newlocale(LC_ALL_MASK, "C", nullptr);
  SettledLocale settings(SeparatorOfFormat(Langinfo(D_FMT, locale, "%m/%d/%y"), "/"),
                         SeparatorOfFormat(Langinfo(T_FMT, locale, "%H:%M:%S"), ":"),
                         Langinfo(RADIXCHAR, locale, "."), UserDateNames());
  if (locale != nullptr) freelocale(locale);
  return settings;
}

}  // namespace

PosixLocale::PosixLocale() : SettledLocale(UserSettings()) {}

}  // namespace tessaly
