#include "wizard/start_up.h"

#include "settings/command_line.h"

namespace tessaly {

void StartWizard(fTessaly& form, Ui& ui) {
  form.Load();
  if (form.ended()) return;
  if (!command_line::Holds(form.commandLine(), "/hide")) ui.Show(form);
}

void StartWizard(fTessaly& form, Ui& ui, std::vector<std::string> files, std::string switches) {
  form.GiveFilesApart(std::move(files), std::move(switches));
  StartWizard(form, ui);
}

}  // namespace tessaly
