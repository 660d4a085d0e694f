#ifndef TESSALY_SYSTEM_PRODUCT_SITE_H_
#define TESSALY_SYSTEM_PRODUCT_SITE_H_

#include <string>
#include <string_view>

#include "settings/settings_store.h"

namespace tessaly {

// The maker's web site, used when the shared tree names none.
inline constexpr std::string_view kBuiltInSiteAddress = "https://www.ostrelle.com/";

// The web address of the product titled `title`: its value under "Web
// Sites", else that key's default value, else (also when the answer is
// blank) the built-in address. A value that is not a text counts as none.
std::string ProductSite(SettingsStore& store, std::string_view title);

}  // namespace tessaly

#endif  // TESSALY_SYSTEM_PRODUCT_SITE_H_
