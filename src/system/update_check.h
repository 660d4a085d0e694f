#ifndef TESSALY_SYSTEM_UPDATE_CHECK_H_
#define TESSALY_SYSTEM_UPDATE_CHECK_H_

#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/network_status.h"
#include "platform/program_info.h"
#include "platform/shell.h"
#include "settings/settings_store.h"

namespace tessaly {

// Where the check keeps its marks, in the program's own key; the updater
// records its path under kShortPathsKey as "AutoUpdate".
inline constexpr std::string_view kUpdateSection = "SettingsNet";
inline constexpr std::string_view kAutoUpdateName = "AutoUpdate";
inline constexpr std::string_view kLastCheckName = "LastCheck";

// The week of `date` and its year, such as "12024": weeks start on Sunday
// and week 1 holds 1 January. Two dates share a mark exactly when they lie
// in the same week of the same year.
std::string WeekMark(const CivilDate& date);

// Once a week, hands over to the separate updater: when "AutoUpdate" is 1
// (the default), this week has not been handed over yet, the updater's
// recorded path names a file and the connection is a plain modem or LAN
// one, it marks the week done and then starts the updater, not waiting for
// it. Any failure ends the check quietly; it never shows anything.
void CheckForUpdates(SettingsStore& store, NetworkStatus& network, Shell& shell,
                     const Clock& clock, const RunningProgram& program, FileSystem& fileSystem);

}  // namespace tessaly

#endif  // TESSALY_SYSTEM_UPDATE_CHECK_H_
