// tessaly-cli: the wizard without a window, for scripts. The files go into
// the wizard's list as they are given and the switches do their work while
// the wizard loads; then the change log (or the preview, or with --dry-run
// what would be renamed) is printed and the program ends. It never waits
// for a window. Asked to stop (Ctrl+C, SIGTERM, SIGHUP), it ends a run
// after the file under way, prints what was done and exits with the
// shell's status for the signal.
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "cli_options.h"
#include "machine_wizard.h"
#include "platform/machine.h"
#include "read_only_registry.h"
#include "terminal.h"
#include "terminal_ui.h"
#include "text/visible_text.h"
#include "undo_command.h"
#include "usage_text.h"
#include "visible_paths_file_system.h"
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

// The colours of standard output, readable on its background: the one the
// terminal reports, else the one COLORFGBG names, else black.
cli::Colours OutputColours() {
  const bool terminal = cli::IsTerminal(cli::kStandardOutput);
  const cli::ColourMode mode =
      cli::ColourModeFor(terminal && cli::PrepareForColour(cli::kStandardOutput),
                         std::getenv("NO_COLOR"), std::getenv("COLORTERM"), std::getenv("TERM"));
  if (mode == cli::ColourMode::kNone) return mode;
  std::optional<Rgb> background = cli::AskTerminalBackground();
  if (!background) background = cli::BackgroundInColorFgBg(std::getenv("COLORFGBG"));
  return {mode, background.value_or(Rgb{})};
}

// The wizard holds a row or a kept answer for every file: freeing that
// piece by piece at exit costs more than the run's own bookkeeping, while
// the system takes the memory back at once. Kept reachable, so leak
// checkers stay quiet. Every setting is stored by then.
void LeaveAtExit(std::unique_ptr<launch::MachineWizard> wizard) {
  static launch::MachineWizard* kept = nullptr;
  delete kept;
  kept = wizard.release();
}

// How the end is reported for `request`.
cli::ReportStyle StyleFor(const cli::Request& request) {
  std::string here = machine::MakeWorkingFolder()->Absolute(".");
  if (!here.ends_with('\\')) here += '\\';
  return {request.json, OutputColours(), request.verbose, std::move(here)};
}

int RunWizard(cli::WizardInput input, const cli::Request& request, const StopRequests& stops) {
  cli::TerminalPerson person;
  const bool progressInPlace =
      cli::IsTerminal(cli::kStandardError) && !cli::IsDumbTerminal(std::getenv("TERM"));
  cli::TerminalUi ui(std::cout, std::cerr, progressInPlace, person);
  launch::MachineWizard::Layers layers;
  layers.fileSystem = [](FileSystem& real) {
    return std::make_unique<cli::VisiblePathsFileSystem>(real);
  };
  // A dry run reads the stored options but stores nothing.
  if (request.dryRun) {
    layers.registry = [](Registry& real) { return std::make_unique<cli::ReadOnlyRegistry>(real); };
  }
  auto wizard = std::make_unique<launch::MachineWizard>(
      ui, launch::WizardInput{std::move(input.files), std::move(input.commandLine)},
      layers, &stops);
  if (request.dryRun) wizard->form().MakeDryRun();
  // A folder brings its sub-folders' files as Add Directory does with the
  // box ticked.
  if (request.recursive) wizard->form().chkSubDirectories.SetValue(kChecked);
  Connection streaming;
  if (request.json) streaming = cli::StreamJson(wizard->form(), wizard->fileSystem(), std::cout);
  wizard->Start();
  const int status = cli::ReportEnd(wizard->form(), wizard->fileSystem(), StyleFor(request),
                                    std::cout, std::cerr);
  LeaveAtExit(std::move(wizard));
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  // The list, the preview and the log of a large folder are megabytes each.
  machine::ReturnLargeBlocksWhenFreed();
  // A long log goes out faster without keeping step with C stdio.
  std::ios::sync_with_stdio(false);
  std::optional<cli::Request> request = cli::ReadRequest(argc, argv);
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
  // The input holds the files now; a copy of every word need not last the run.
  request->words = std::vector<std::string>();
  for (const std::string& path : input->tooLong) {
    std::cerr << "tessaly-cli: left out, too long for this system: "
              << text::Visible(path, text::Layout::kNone) << '\n';
  }
  const bool tooLong = !input->tooLong.empty();
  // Ctrl+C and the like end a run after the file under way, and its log is
  // printed all the same.
  const std::unique_ptr<StopRequests> stops = machine::ListenForStops();
  const int status = RunWizard(std::move(*input), *request, *stops);
  if (stops->Requested()) return stops->ExitStatus();
  return std::max(status, tooLong ? 1 : 0);
}
