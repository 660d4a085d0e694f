#include "system/product_site.h"

#include "system/shared_keys.h"
#include "text/text_ops.h"

namespace tessaly {

std::string ProductSite(SettingsStore& store, std::string_view title) {
  std::string site = store.GetSharedSetting(kWebSitesKey, title, SettingValue::FromText(""))
                         .AsText();
  if (site.empty()) {
    site = store
               .GetSharedSetting(kWebSitesKey, "",
                                 SettingValue::FromText(std::string(kBuiltInSiteAddress)))
               .AsText();
  }
  // A blank answer is no address; a good one is handed on as it was stored.
  if (text::TrimBlanks(site).empty()) return std::string(kBuiltInSiteAddress);
  return site;
}

}  // namespace tessaly
