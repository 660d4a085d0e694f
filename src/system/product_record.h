#ifndef TESSALY_SYSTEM_PRODUCT_RECORD_H_
#define TESSALY_SYSTEM_PRODUCT_RECORD_H_

#include <string_view>

#include "platform/clock.h"
#include "platform/program_info.h"
#include "platform/short_path.h"
#include "settings/settings_store.h"

namespace tessaly {

// The file patterns the program records that it works on.
inline constexpr std::string_view kAllFilesPattern = "*.*";

// The date of this build, as the record states it.
inline constexpr std::string_view kBuildDate = "April 2nd, 2003";

// The installer's key of the program, in the machine's hive, before the title.
inline constexpr std::string_view kUninstallKeyPrefix =
    "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";

// Writes the program's record for its sibling programs: where it lies (its
// file with the platform's extension), its version, what it opens and its web site, in the shared tree of the user's
// hive, and its path in the machine's hive. The site and the install date
// keep the text they were first given. Every write stands alone: one that
// fails (as those to the machine's hive do for a normal user) is skipped
// quietly and the next one is made.
void RecordProduct(SettingsStore& store, const RunningProgram& program, ShortPaths& shortPaths,
                   const Clock& clock, std::string_view filePatterns = kAllFilesPattern);

}  // namespace tessaly

#endif  // TESSALY_SYSTEM_PRODUCT_RECORD_H_
