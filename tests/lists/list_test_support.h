#ifndef TESSALY_TESTS_LISTS_LIST_TEST_SUPPORT_H_
#define TESSALY_TESTS_LISTS_LIST_TEST_SUPPORT_H_

#include <string>

#include "platform/memory/memory_registry.h"
#include "platform/memory/scripted_ui.h"
#include "settings/settings_store.h"

namespace tessaly {

// A settings store over an in-memory registry, with a scripted person.
struct ListTestWorld {
  MemoryRegistry registry;
  SettingsStore store{registry};
  ScriptedUi ui;

  std::string Stored(std::string_view name) {
    return store.GetProgramSetting("Settings", name, SettingValue::FromText("<none>")).AsText();
  }
  void Store(std::string_view name, std::string text) {
    store.SaveProgramSetting("Settings", name, SettingValue::FromText(std::move(text)));
  }
};

}  // namespace tessaly

#endif  // TESSALY_TESTS_LISTS_LIST_TEST_SUPPORT_H_
