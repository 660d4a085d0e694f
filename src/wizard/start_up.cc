#include "wizard/start_up.h"

#include "settings/command_line.h"

namespace tessaly {

void StartWizard(fTessaly& form, Ui& ui) {
  form.Load();
  if (form.ended()) return;
  if (!command_line::Holds(form.commandLine(), "/hide")) ui.Show(form);
}

}  // namespace tessaly
