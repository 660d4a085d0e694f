#ifndef TESSALY_WIZARD_WIZARD_SERVICES_H_
#define TESSALY_WIZARD_WIZARD_SERVICES_H_

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/network_status.h"
#include "platform/program_info.h"
#include "platform/random.h"
#include "platform/run_journals.h"
#include "platform/shell.h"
#include "platform/short_path.h"
#include "platform/stop_requests.h"
#include "platform/ui.h"
#include "settings/settings_store.h"

namespace tessaly {

// Everything the wizard asks of the world, handed in by the front-end so
// tests can put memory backends and a scripted person in their place.
struct WizardServices {
  FileSystem& fileSystem;
  SettingsStore& store;
  Ui& ui;
  const Clock& clock;
  const Locale& locale;
  RandomGenerator& random;
  const RunningProgram& program;
  Shell& shell;
  NetworkStatus& network;
  ShortPaths& shortPaths;
  // Where rename runs keep their journals; none: runs are not recorded.
  RunJournals* journals = nullptr;
  // Where requests to stop from outside come in (a console's Ctrl+C);
  // none: only Cancel ends a run.
  const StopRequests* stops = nullptr;
};

}  // namespace tessaly

#endif  // TESSALY_WIZARD_WIZARD_SERVICES_H_
