#ifndef TESSALY_PLATFORM_POSIX_POSIX_LOCALE_H_
#define TESSALY_PLATFORM_POSIX_POSIX_LOCALE_H_

#include "platform/locale.h"

namespace tessaly {

// The separators and date names of the user's locale (LC_ALL, LC_TIME,
// LC_NUMERIC and LANG, as the C library reads them), taken once at
// construction. The process's own locale is neither read nor changed.
class PosixLocale : public SettledLocale {
 public:
  PosixLocale();
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_POSIX_LOCALE_H_
