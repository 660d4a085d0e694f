// tessaly-cli: the wizard without a window, for scripts. The files go into
// the wizard's list as they are given and the switches do their work while
// the wizard loads; then the change log (or the preview, or with --dry-run
// what would be renamed) is printed and the program ends. It never waits
// for a window.
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "cli_options.h"
#include "dry_run.h"
#include "log_printer.h"
#include "platform/posix/existing_short_paths.h"
#include "platform/posix/posix_locale.h"
#include "platform/posix/posix_network_status.h"
#include "platform/posix/posix_program.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/shell_words.h"
#include "platform/posix/sqlite_registry.h"
#include "platform/posix/standard_random.h"
#include "platform/posix/system_clock.h"
#include "read_only_registry.h"
#include "settings/settings_store.h"
#include "terminal.h"
#include "terminal_ui.h"
#include "text/visible_text.h"
#include "usage_text.h"
#include "visible_paths_file_system.h"
#include "wizard/start_up.h"
#include "wizard/tessaly_form.h"
#include "wizard_report.h"

namespace {

using namespace tessaly;

constexpr int kBadUsage = 2;

// What the wizard is given: the files apart from the switches, or with
// --command-line one raw text.
struct WizardInput {
  bool raw = false;
  std::vector<std::string> files;
  std::string commandLine;
  bool wouldRename = false;  // for a dry run: the steps were to reach the run
};

int RefuseUsage(std::string_view why) {
  std::cerr << "tessaly-cli: " << text::Visible(why, text::Layout::kNone)
            << "\nTry 'tessaly-cli --help'.\n";
  return kBadUsage;
}

// Adds the names of --files-from; false when the list cannot be read.
bool AddFilesFrom(const cli::Request& request, const std::string& here, WizardInput& input) {
  std::ifstream file;
  if (*request.filesFrom != "-") {
    file.open(*request.filesFrom, std::ios::binary);
    if (!file) return false;
  }
  std::istream& in = *request.filesFrom == "-" ? std::cin : file;
  for (const std::string& name : cli::ReadFileNames(in, request.nulSeparated)) {
    input.files.push_back(AbsoluteModelPath(name, here));
  }
  return !in.bad();
}

// The wizard's input, or the reason the request cannot be run.
std::optional<WizardInput> InputFor(const cli::Request& request, std::string& refusal) {
  WizardInput input;
  if (request.commandLine) {
    input.raw = true;
    input.commandLine = *request.commandLine;
  } else {
    const std::string here = CurrentFolder();
    ShellWords sorted = SortShellWords(request.words, here);
    if (!sorted.badSwitch.empty()) {
      refusal = "'" + sorted.badSwitch +
                "' is not a switch (see --help), and no file or folder of that name exists";
      return std::nullopt;
    }
    input.files = std::move(sorted.files);
    input.commandLine = std::move(sorted.switches);
    if (request.filesFrom && !AddFilesFrom(request, here, input)) {
      refusal = "cannot read the list of files '" + *request.filesFrom + "'";
      return std::nullopt;
    }
  }
  if (request.dryRun) {
    cli::DryRunCommandLine safe = cli::StopAtPreview(input.commandLine);
    input.commandLine = std::move(safe.text);
    input.wouldRename = safe.wouldRename;
  }
  return input;
}

void Report(const fTessaly& form, FileSystem& files, const cli::Request& request,
            bool wouldRename) {
  const cli::ColourMode colours =
      cli::ColourModeFor(cli::IsTerminal(STDOUT_FILENO), std::getenv("NO_COLOR"),
                         std::getenv("COLORTERM"), std::getenv("TERM"));
  if (request.dryRun && wouldRename && form.CurrentStep == 3 && form.lstFilesC.ListCount() > 0) {
    const auto plan = cli::PlanRenames(form.lstFiles, form.lstFilesC, files);
    if (request.json) {
      cli::PrintPlanJson(plan, std::cout);
    } else {
      cli::PrintPlan(plan, files, std::cout, colours);
    }
  } else if (request.json) {
    cli::ReportWizardJson(form, std::cout, std::cerr);
  } else {
    cli::ReportWizard(form, std::cout, std::cerr, colours);
  }
}

int RunWizard(WizardInput input, const cli::Request& request) {
  cli::VisiblePathsFileSystem fileSystem;
  SqliteRegistry registry;
  // A dry run reads the stored options but stores nothing.
  cli::ReadOnlyRegistry readOnly(registry);
  SettingsStore store(request.dryRun ? static_cast<Registry&>(readOnly) : registry);
  cli::TerminalPerson person;
  const bool progressInPlace =
      cli::IsTerminal(STDERR_FILENO) && !cli::IsDumbTerminal(std::getenv("TERM"));
  cli::TerminalUi ui(std::cout, std::cerr, progressInPlace, person);
  SystemClock clock;
  PosixLocale locale;
  StandardRandom random;
  PosixProgram program(input.commandLine);
  PosixShell shell;
  PosixNetworkStatus network;
  ExistingShortPaths shortPaths(fileSystem);

  fTessaly form(WizardServices{fileSystem, store, ui, clock, locale, random, program, shell,
                               network, shortPaths});
  if (input.raw) {
    StartWizard(form, ui);
  } else {
    StartWizard(form, ui, std::move(input.files), input.commandLine);
  }
  Report(form, fileSystem, request, input.wouldRename);
  return cli::ExitStatus(form);
}

}  // namespace

int main(int argc, char** argv) {
  // A long log goes out faster without keeping step with C stdio.
  std::ios::sync_with_stdio(false);
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.empty()) {
    std::cerr << cli::UsageText();
    return kBadUsage;
  }
  const cli::Request request = cli::ReadArguments(words);
  switch (request.kind) {
    case cli::Request::Kind::kHelp:
      std::cout << cli::UsageText();
      return 0;
    case cli::Request::Kind::kVersion:
      std::cout << cli::VersionText();
      return 0;
    case cli::Request::Kind::kError:
      return RefuseUsage(request.error);
    case cli::Request::Kind::kRun:
      break;
  }
  std::string refusal;
  std::optional<WizardInput> input = InputFor(request, refusal);
  if (!input) return RefuseUsage(refusal);
  return RunWizard(std::move(*input), request);
}
