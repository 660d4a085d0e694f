#include "system/product_record.h"

#include <string>

#include "conversion/date_format.h"
#include "conversion/path_routines.h"
#include "system/product_site.h"
#include "system/short_path_of.h"
#include "system/shared_keys.h"

namespace tessaly {

namespace {

SettingValue Text(std::string text) { return SettingValue::FromText(std::move(text)); }

// Runs one write of the record; whatever goes wrong in it, the next runs.
template <typename Step>
void Quietly(Step step) {
  try {
    step();
  } catch (...) {
  }
}

std::string VersionText(const ProgramVersion& version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
         std::to_string(version.revision);
}

// Writes back what is stored under `name`, or `first` when nothing is yet.
void KeepOrWrite(SettingsStore& store, const std::string& name, const std::string& first) {
  const SettingValue kept = store.GetSharedSetting(kProductRecordKey, name, Text(first));
  store.SaveSharedSetting(kProductRecordKey, name, kept);
}

}  // namespace

void RecordProduct(SettingsStore& store, const RunningProgram& program, ShortPaths& shortPaths,
                   const Clock& clock, std::string_view filePatterns) {
  std::string title;
  std::string folder;
  std::string fileName;
  std::string fullPath;
  std::string site;
  Quietly([&] {
    title = program.Title();
    folder = program.Folder();
    fileName = program.FileName() + program.FileExtension();
    fullPath = WithTrailingBackslash(folder) + fileName;
  });
  Quietly([&] { store.SaveSharedSetting(kFileSupportKey, title, Text(std::string(filePatterns))); });
  Quietly([&] { store.SaveSharedSetting(kAssoPathsKey, title, Text(fullPath)); });
  Quietly([&] {
    site = ProductSite(store, title);
    store.SaveSharedSetting(kWebSitesKey, title, Text(site));
  });
  Quietly([&] { KeepOrWrite(store, title + " site", site); });
  Quietly([&] {
    store.SaveSharedSetting(kProductRecordKey, title + " ver", Text(VersionText(program.Version())));
  });
  Quietly([&] {
    store.SaveSharedSetting(kProductRecordKey, title + " date", Text(std::string(kBuildDate)));
  });
  Quietly([&] { store.SaveSharedSetting(kProductRecordKey, title + " path", Text(fullPath)); });
  Quietly([&] {
    KeepOrWrite(store, title + " install", FormatDate("mmmm dd, yyyy", clock.Today()));
  });
  Quietly([&] {
    store.SaveSharedSetting(kShortPathsKey, title, Text(ShortPathOf(shortPaths, fullPath)));
  });
  Quietly([&] { store.SaveSharedSetting(kProgramPathsKey, title, Text(fullPath)); });
  Quietly([&] { store.RegisterAppPath(fileName, fullPath); });
  Quietly([&] {
    store.WriteRegistryValue(Hive::kLocalMachine, std::string(kUninstallKeyPrefix) + title + "_is1",
                             "Inno Setup: App Path", Text(folder));
  });
}

}  // namespace tessaly
