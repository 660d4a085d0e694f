// One command line drives the same controls and steps a person would.

#include <algorithm>

#include "settings/command_line.h"
#include "wizard/tessaly_form.h"

namespace tessaly {

void fTessaly::ProcessCommandLine() {
  namespace cl = command_line;
  // Files given apart from the switches are a file part when there are any.
  // They are read once: the list holds them from then on.
  std::optional<std::vector<std::string>> paths =
      filesApart_ ? (givenFiles_.empty() ? std::nullopt : std::optional(std::move(givenFiles_)))
                  : cl::FilePaths(commandLine_);
  givenFiles_ = std::vector<std::string>();
  if (paths) {
    refusedForLimit_ = 0;
    // Mostly files, each a row: room for them all at once.
    std::size_t bytes = 0;
    for (const std::string& path : *paths) bytes += path.size();
    lstFiles.Reserve(paths->size(), bytes);
    for (const std::string& path : *paths) AddGivenPath(path);
    paths.reset();
    FinishAdding();
    if (!cl::Holds(commandLine_, "/")) ShowStep(1);
  }
  if (cl::Holds(commandLine_, "/settings:")) {
    for (const cl::OptionSwitch& option : cl::kOptionSwitches) {
      if (!cl::Holds(commandLine_, option.text)) continue;
      if (CheckBox* box = RememberedCheckBox(option.box)) box->SetValue(option.state);
    }
  }
  if (cl::Holds(commandLine_, "/placement")) {
    for (int number = 1; number <= 6; ++number) {
      if (auto value = cl::PlacementValue(commandLine_, number)) {
        cboBatch[number - 1].SetText(std::move(*value));
      }
    }
  }
  if (cl::Holds(commandLine_, "/DefineUnwantedFormatting")) ShowFormattingDialog();
  if (cl::Holds(commandLine_, "/show")) {
    services_.ui.Show(*this);
    services_.ui.LetPendingEventsRun();
  }
  if (cl::Holds(commandLine_, "/step:")) {
    // The wizard ends at step 4, so a larger count runs the steps there are.
    const int last = std::min(cl::StepCount(commandLine_), kStepCount - 1);
    for (int step = 1; step <= last && !ended_; ++step) ShowStep(step);
  }
  if (cl::Holds(commandLine_, "/exit")) {
    services_.ui.LetPendingEventsRun();
    EndProgram();
  }
}

}  // namespace tessaly
