// tessaly-cli: the wizard without a window, for scripts. The command line's
// work is done while the wizard loads; then the change log (or the preview)
// is printed and the program ends. It never waits for a window.
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "cli_options.h"
#include "log_printer.h"
#include "platform/posix/existing_short_paths.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_locale.h"
#include "platform/posix/posix_network_status.h"
#include "platform/posix/posix_program.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/sqlite_registry.h"
#include "platform/posix/standard_random.h"
#include "platform/posix/system_clock.h"
#include "settings/settings_store.h"
#include "terminal.h"
#include "terminal_ui.h"
#include "wizard/start_up.h"
#include "wizard/tessaly_form.h"
#include "wizard_report.h"

namespace {

using namespace tessaly;

int RunWizard(const std::string& commandLine) {
  PosixFileSystem fileSystem;
  SqliteRegistry registry;
  SettingsStore store(registry);
  cli::TerminalPerson person;
  cli::TerminalUi ui(std::cout, std::cerr, cli::IsTerminal(STDERR_FILENO), person);
  SystemClock clock;
  PosixLocale locale;
  StandardRandom random;
  PosixProgram program(commandLine);
  PosixShell shell;
  PosixNetworkStatus network;
  ExistingShortPaths shortPaths(fileSystem);

  fTessaly form(WizardServices{fileSystem, store, ui, clock, locale, random, program, shell,
                               network, shortPaths});
  StartWizard(form, ui);

  const cli::ColourMode colours = cli::ColourModeFor(
      cli::IsTerminal(STDOUT_FILENO), std::getenv("NO_COLOR"), std::getenv("COLORTERM"));
  cli::ReportWizard(form, std::cout, std::cerr, colours);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  // A long log goes out faster without keeping step with C stdio.
  std::ios::sync_with_stdio(false);
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.empty()) {
    std::cerr << cli::UsageText();
    return 2;
  }
  char* here = getcwd(nullptr, 0);
  const cli::Request request = cli::ReadArguments(words, here != nullptr ? here : "");
  std::free(here);
  switch (request.kind) {
    case cli::Request::Kind::kHelp:
      std::cout << cli::UsageText();
      return 0;
    case cli::Request::Kind::kError:
      std::cerr << "tessaly-cli: " << request.error << "\nTry 'tessaly-cli --help'.\n";
      return 2;
    case cli::Request::Kind::kRun:
      break;
  }
  return RunWizard(request.commandLine);
}
