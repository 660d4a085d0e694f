#ifndef TESSALY_TESTS_WIZARD_WIZARD_TEST_SUPPORT_H_
#define TESSALY_TESTS_WIZARD_WIZARD_TEST_SUPPORT_H_

#include <gtest/gtest.h>

#include <string>

#include "memory_world.h"
#include "platform/memory/memory_file_system.h"

namespace tessaly {

// The wizard over a memory file system that ignores letter case, unless a
// test asks for one that does not.
class WizardTest : public ::testing::Test {
 protected:
  explicit WizardTest(MemoryFileSystem::LetterCase letterCase = MemoryFileSystem::LetterCase::kIgnore)
      : files(letterCase) {}

  fTessaly& Start(std::string commandLine = "") { return world.Start(std::move(commandLine)); }

  // Each path becomes a file on the disk; `AddFiles` also lists them.
  void MakeFiles(std::initializer_list<std::string_view> paths) {
    for (std::string_view path : paths) files.AddFile(path);
  }
  void AddFiles(std::initializer_list<std::string_view> paths) {
    MakeFiles(paths);
    DropData drop;
    for (std::string_view path : paths) drop.files.emplace_back(path);
    world.form->AddDroppedFiles(drop);
  }

  std::int32_t StoredState(std::string_view name) {
    return store.GetProgramSetting("Settings", name, SettingValue::FromInt32(-1)).AsWholeNumber();
  }

  MemoryFileSystem files;
  MemoryWorld world{files};
  SettingsStore& store = world.store;
  ScriptedUi& ui = world.ui;
  FixedClock& clock = world.clock;
  FixedLocale& locale = world.locale;
  ScriptedRandom& random = world.random;
  std::unique_ptr<fTessaly>& form = world.form;
};

}  // namespace tessaly

#endif  // TESSALY_TESTS_WIZARD_WIZARD_TEST_SUPPORT_H_
