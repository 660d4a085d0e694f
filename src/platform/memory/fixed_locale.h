#ifndef TESSALY_PLATFORM_MEMORY_FIXED_LOCALE_H_
#define TESSALY_PLATFORM_MEMORY_FIXED_LOCALE_H_

#include "platform/locale.h"

namespace tessaly {

// Regional settings chosen by the test.
using FixedLocale = SettledLocale;

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_FIXED_LOCALE_H_
