#ifndef TESSALY_TESTS_WIZARD_WIZARD_TEST_SUPPORT_H_
#define TESSALY_TESTS_WIZARD_WIZARD_TEST_SUPPORT_H_

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/fixed_network_status.h"
#include "platform/memory/fixed_program.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_registry.h"
#include "platform/memory/memory_short_paths.h"
#include "platform/memory/recording_shell.h"
#include "platform/memory/scripted_random.h"
#include "platform/memory/scripted_ui.h"
#include "settings/settings_store.h"
#include "wizard/start_up.h"
#include "wizard/tessaly_form.h"

namespace tessaly {

// The wizard in a world of memory backends and a scripted person, on
// 18 November 2026 at 14:02:09.
class WizardTest : public ::testing::Test {
 protected:
  explicit WizardTest(MemoryFileSystem::LetterCase letterCase = MemoryFileSystem::LetterCase::kIgnore)
      : files(letterCase) {}

  // Starts the program with `commandLine`, as its start-up routine does.
  fTessaly& Start(std::string commandLine = "") {
    program.commandLine = std::move(commandLine);
    form = std::make_unique<fTessaly>(WizardServices{files, store, ui, clock, locale, random,
                                                     program, shell, network, shortPaths});
    StartWizard(*form, ui);
    return *form;
  }

  // Each path becomes a file on the disk; `AddFiles` also lists them.
  void MakeFiles(std::initializer_list<std::string_view> paths) {
    for (std::string_view path : paths) files.AddFile(path);
  }
  void AddFiles(std::initializer_list<std::string_view> paths) {
    MakeFiles(paths);
    DropData drop;
    for (std::string_view path : paths) drop.files.emplace_back(path);
    form->AddDroppedFiles(drop);
  }

  std::int32_t StoredState(std::string_view name) {
    return store.GetProgramSetting("Settings", name, SettingValue::FromInt32(-1)).AsWholeNumber();
  }

  MemoryFileSystem files;
  MemoryRegistry registry;
  SettingsStore store{registry};
  ScriptedUi ui;
  FixedClock clock{CivilDateTime{{2026, 11, 18}, 14, 2, 9}};
  FixedLocale locale;
  ScriptedRandom random;
  FixedProgram program;
  RecordingShell shell;
  FixedNetworkStatus network;
  MemoryShortPaths shortPaths;
  std::unique_ptr<fTessaly> form;
};

}  // namespace tessaly

#endif  // TESSALY_TESTS_WIZARD_WIZARD_TEST_SUPPORT_H_
