#ifndef TESSALY_TESTS_WIZARD_MEMORY_WORLD_H_
#define TESSALY_TESTS_WIZARD_MEMORY_WORLD_H_

#include <functional>
#include <memory>
#include <string>

#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/fixed_network_status.h"
#include "platform/memory/fixed_program.h"
#include "platform/memory/memory_registry.h"
#include "platform/memory/memory_run_journals.h"
#include "platform/memory/memory_short_paths.h"
#include "platform/memory/recording_shell.h"
#include "platform/memory/requested_stops.h"
#include "platform/memory/scripted_random.h"
#include "platform/memory/scripted_ui.h"
#include "settings/settings_store.h"
#include "wizard/start_up.h"
#include "wizard/tessaly_form.h"

namespace tessaly {

// The wizard with everything but its file system in memory, its runs
// journaled and stopped on the test's request, on 18 November 2026 at 14:02:09, facing the person `UiType`
// stands for: a scripted one, or a front-end's own.
template <typename UiType>
struct BasicMemoryWorld {
  explicit BasicMemoryWorld(FileSystem& fileSystem) : files(fileSystem) {}

  // Starts the program with `commandLine`, as its start-up routine does.
  fTessaly& Start(std::string commandLine = "", bool dryRun = false) {
    program.commandLine = std::move(commandLine);
    form = std::make_unique<fTessaly>(WizardServices{files, store, ui, clock, locale, random,
                                                     program, shell, network, shortPaths,
                                                     &journals, &stops});
    if (dryRun) form->MakeDryRun();
    if (beforeStart) beforeStart(*form);
    StartWizard(*form, ui);
    return *form;
  }

  FileSystem& files;
  MemoryRegistry registry;
  SettingsStore store{registry};
  UiType ui;
  FixedClock clock{CivilDateTime{{2026, 11, 18}, 14, 2, 9}};
  FixedLocale locale;
  ScriptedRandom random;
  FixedProgram program;
  RecordingShell shell;
  FixedNetworkStatus network;
  MemoryShortPaths shortPaths;
  MemoryRunJournals journals;
  RequestedStops stops;
  std::unique_ptr<fTessaly> form;
  // What a front-end does to the form before it starts it.
  std::function<void(fTessaly&)> beforeStart;
};

using MemoryWorld = BasicMemoryWorld<ScriptedUi>;

}  // namespace tessaly

#endif  // TESSALY_TESTS_WIZARD_MEMORY_WORLD_H_
