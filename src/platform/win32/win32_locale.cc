#include "platform/win32/win32_locale.h"

#include <windows.h>

#include <optional>

#include "platform/win32/utf16.h"

namespace tessaly {

namespace {

// One item of the user's regional settings; nothing if it is missing.
std::optional<std::string> LocaleText(LCTYPE item) {
  wchar_t buffer[LOCALE_NAME_MAX_LENGTH * 2] = {};
  const int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, item, buffer, std::size(buffer));
  if (length <= 1) return std::nullopt;  // the length counts the terminator
  return win32::Narrow(std::wstring_view(buffer, static_cast<std::size_t>(length - 1)));
}

// English when any name is missing, so a date never mixes two languages.
DateNames UserDateNames() {
  DateNames names;
  bool complete = true;
  const auto read = [&](LCTYPE item, std::string& name) {
    std::optional<std::string> text = LocaleText(item);
    if (text) {
      name = std::move(*text);
    } else {
      complete = false;
    }
  };
  for (int i = 0; i < 12; ++i) {
    read(LOCALE_SMONTHNAME1 + i, names.months[i]);
    read(LOCALE_SABBREVMONTHNAME1 + i, names.monthsShort[i]);
  }
  // Windows counts the days from Monday; the names here begin on Sunday.
  for (int i = 0; i < 7; ++i) {
    const int fromMonday = (i + 6) % 7;
    read(LOCALE_SDAYNAME1 + fromMonday, names.weekdays[i]);
    read(LOCALE_SABBREVDAYNAME1 + fromMonday, names.weekdaysShort[i]);
  }
  return complete ? names : EnglishDateNames();
}

}  // namespace

Win32Locale::Win32Locale()
    : SettledLocale(LocaleText(LOCALE_SDATE).value_or("/"), LocaleText(LOCALE_STIME).value_or(":"),
                    LocaleText(LOCALE_SDECIMAL).value_or("."), UserDateNames()) {}

}  // namespace tessaly
