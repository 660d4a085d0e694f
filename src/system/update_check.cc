#include "system/update_check.h"

#include "conversion/date_format.h"
#include "system/connection_state.h"
#include "system/shared_keys.h"
#include "system/shell_open.h"
#include "text/whole_number.h"

namespace tessaly {

namespace {

// The switch is a number, but a person editing the registry may have
// typed it as the text "1"; that means on as well.
bool IsOn(const SettingValue& value) {
  if (value.IsWholeNumber()) return value.AsWholeNumber() == 1;
  if (value.IsText()) return text::ParseInteger16(value.AsText()) == std::int16_t{1};
  return false;
}

bool FileExists(FileSystem& fileSystem, std::string_view path) {
  if (path.empty()) return false;
  const auto attributes = fileSystem.GetAttributes(path);
  return attributes && (*attributes & attr::kDirectory) == 0;
}

// A connection of two kinds at once, or a busy one, is no moment to fetch.
bool IsPlainConnection(const std::string& state) {
  return state == "Modem;" || state == "LAN;";
}

// What the updater is told: the title, a comma and the three-part version.
std::string UpdaterParameters(const RunningProgram& program) {
  const ProgramVersion version = program.Version();
  return program.Title() + "," + std::to_string(version.major) + "." +
         std::to_string(version.minor) + "." + std::to_string(version.revision);
}

void RunCheck(SettingsStore& store, NetworkStatus& network, Shell& shell, const Clock& clock,
              const RunningProgram& program, FileSystem& fileSystem) {
  if (!IsOn(store.GetProgramSetting(kUpdateSection, kAutoUpdateName,
                                    SettingValue::FromInt32(1)))) {
    return;
  }
  const std::string mark = WeekMark(clock.Today());
  if (store.GetProgramSetting(kUpdateSection, kLastCheckName, SettingValue::FromText(""))
          .AsText() == mark) {
    return;
  }
  const std::string updater =
      store.GetSharedSetting(kShortPathsKey, kAutoUpdateName, SettingValue::FromText("")).AsText();
  if (!FileExists(fileSystem, updater)) return;
  if (!IsPlainConnection(ConnectionState(network))) return;
  // The week counts as done before the start, so an updater that will not
  // start is not tried again at every start of the same week. A refused
  // write goes unnoticed, but a key that cannot be made is an error, and an
  // error ends the check.
  if (store.SaveProgramSetting(kUpdateSection, kLastCheckName, SettingValue::FromText(mark))
          .raised) {
    return;
  }
  ShellOpen(shell, program, updater, show::kDefault, UpdaterParameters(program), "", "open", 0);
}

}  // namespace

std::string WeekMark(const CivilDate& date) { return FormatDate("wwyyyy", date); }

void CheckForUpdates(SettingsStore& store, NetworkStatus& network, Shell& shell,
                     const Clock& clock, const RunningProgram& program, FileSystem& fileSystem) {
  // Start-up goes on whatever happens in here.
  try {
    RunCheck(store, network, shell, clock, program, fileSystem);
  } catch (...) {
  }
}

}  // namespace tessaly
