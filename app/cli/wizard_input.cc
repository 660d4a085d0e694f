#include "wizard_input.h"

#include "dry_run.h"

namespace tessaly::cli {

void KeepDryRunToPreview(const Request& request, WizardInput& input) {
  if (!request.dryRun) return;
  DryRunCommandLine safe = StopAtPreview(input.commandLine);
  input.commandLine = std::move(safe.text);
  input.wouldRename = safe.wouldRename;
}

}  // namespace tessaly::cli
