#ifndef TESSALY_PLATFORM_WIN32_WIN32_LOCALE_H_
#define TESSALY_PLATFORM_WIN32_WIN32_LOCALE_H_

#include <string>

#include "platform/locale.h"

namespace tessaly {

// The separators and date names of the user's regional settings, taken
// once at construction.
class Win32Locale : public SettledLocale {
 public:
  Win32Locale();
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_WIN32_WIN32_LOCALE_H_
