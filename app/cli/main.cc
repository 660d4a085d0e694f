// tessaly-cli: the wizard without a window, for scripts. The files go into
// the wizard's list as they are given and the switches do their work while
// the wizard loads; then the change log (or the preview, or with --dry-run
// what would be renamed) is printed and the program ends. It never waits
// for a window.
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "cli_options.h"
#include "dry_run.h"
#include "log_printer.h"
#include "platform/machine.h"
#include "read_only_registry.h"
#include "settings/settings_store.h"
#include "terminal.h"
#include "terminal_ui.h"
#include "text/visible_text.h"
#include "undo_command.h"
#include "usage_text.h"
#include "visible_paths_file_system.h"
#include "wizard/start_up.h"
#include "wizard/tessaly_form.h"
#include "wizard_input.h"
#include "wizard_report.h"

namespace {

using namespace tessaly;

constexpr int kBadUsage = 2;

int RefuseUsage(std::string_view why) {
  std::cerr << "tessaly-cli: " << text::Visible(why, text::Layout::kNone)
            << "\nTry 'tessaly-cli --help'.\n";
  return kBadUsage;
}

cli::ColourMode OutputColours() {
  const bool terminal = cli::IsTerminal(cli::kStandardOutput);
  return cli::ColourModeFor(terminal && cli::PrepareForColour(cli::kStandardOutput),
                            std::getenv("NO_COLOR"), std::getenv("COLORTERM"),
                            std::getenv("TERM"));
}

void Report(const fTessaly& form, FileSystem& files, const cli::Request& request,
            bool wouldRename) {
  const cli::ColourMode colours = OutputColours();
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

// What holds a row or a kept answer for every file: freeing that piece by
// piece at exit costs more than the run's own bookkeeping, while the system
// takes the memory back at once. Kept reachable, so leak checkers stay quiet.
struct LeftAtExit {
  std::unique_ptr<fTessaly> form;
  std::unique_ptr<FileSystem> fileSystem;
};

void LeaveAtExit(LeftAtExit left) {
  static LeftAtExit* kept = nullptr;
  delete kept;
  kept = new LeftAtExit(std::move(left));
}

int RunWizard(cli::WizardInput input, const cli::Request& request) {
  machine::Services machine = machine::MakeServices();
  cli::VisiblePathsFileSystem fileSystem(*machine.fileSystem);
  // A dry run reads the stored options but stores nothing.
  cli::ReadOnlyRegistry readOnly(*machine.registry);
  SettingsStore store(request.dryRun ? static_cast<Registry&>(readOnly) : *machine.registry);
  cli::TerminalPerson person;
  const bool progressInPlace =
      cli::IsTerminal(cli::kStandardError) && !cli::IsDumbTerminal(std::getenv("TERM"));
  cli::TerminalUi ui(std::cout, std::cerr, progressInPlace, person);
  const std::unique_ptr<RunningProgram> program = machine::MakeProgram(input.commandLine);
  const std::unique_ptr<ShortPaths> shortPaths = machine::MakeShortPaths(fileSystem);

  auto form = std::make_unique<fTessaly>(
      WizardServices{fileSystem, store, ui, *machine.clock, *machine.locale, *machine.random,
                     *program, *machine.shell, *machine.network, *shortPaths,
                     machine.journals.get()});
  if (input.raw) {
    StartWizard(*form, ui);
  } else {
    StartWizard(*form, ui, std::move(input.files), input.commandLine);
  }
  Report(*form, fileSystem, request, input.wouldRename);
  const int status = cli::ExitStatus(*form);
  LeaveAtExit({std::move(form), std::move(machine.fileSystem)});
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  // A long log goes out faster without keeping step with C stdio.
  std::ios::sync_with_stdio(false);
  const std::optional<cli::Request> request = cli::ReadRequest(argc, argv);
  if (!request) {
    std::cerr << cli::CommandLineUsage();
    return kBadUsage;
  }
  switch (request->kind) {
    case cli::Request::Kind::kHelp:
      std::cout << cli::CommandLineUsage();
      return 0;
    case cli::Request::Kind::kVersion:
      std::cout << cli::VersionText();
      return 0;
    case cli::Request::Kind::kError:
      return RefuseUsage(request->error);
    case cli::Request::Kind::kRun:
      break;
  }
  if (cli::AsksForRuns(*request)) {
    if (const auto problem = cli::RunsRequestProblem(*request)) return RefuseUsage(*problem);
    return cli::RunRunsRequest(*request, OutputColours());
  }
  std::string refusal;
  std::optional<cli::WizardInput> input = cli::InputFor(*request, refusal);
  if (!input) return RefuseUsage(refusal);
  return RunWizard(std::move(*input), *request);
}
