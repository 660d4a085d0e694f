#include "machine_wizard.h"

#include <iostream>

#include "settings/command_line.h"
#include "wizard/start_up.h"
#include "wizard/wizard_texts.h"

namespace tessaly::launch {

namespace {

template <typename T>
std::unique_ptr<T> Wrapped(const std::function<std::unique_ptr<T>(T&)>& layer, T& real) {
  return layer ? layer(real) : nullptr;
}

}  // namespace

MachineWizard::MachineWizard(Ui& ui, WizardInput input, const Layers& layers,
                             const StopRequests* stops)
    : ui_(ui),
      input_(std::move(input)),
      machine_(machine::MakeServices()),
      fileSystemLayer_(Wrapped(layers.fileSystem, *machine_.fileSystem)),
      registryLayer_(Wrapped(layers.registry, *machine_.registry)),
      store_(registry()),
      program_(machine::MakeProgram(input_.commandLine)),
      shortPaths_(machine::MakeShortPaths(fileSystem())),
      form_(std::make_unique<fTessaly>(WizardServices{
          fileSystem(), store_, ui, *machine_.clock, *machine_.locale, *machine_.random, *program_,
          *machine_.shell, *machine_.network, *shortPaths_, machine_.journals.get(), stops})) {}

void MachineWizard::Start() {
  StartWizard(*form_, ui_, std::move(input_.files), input_.commandLine);
}

Connection TellWhenListFull(fTessaly& form, Ui& ui, std::ostream& unattended) {
  return form.listFull.Connect([&form, &ui, &unattended] {
    const std::string text = ListFullText(form.refusedForLimit());
    // Nobody may be there to close a message box, and the run would wait
    // for ever.
    if (command_line::Holds(form.commandLine(), "/exit") ||
        command_line::Holds(form.commandLine(), "/hide")) {
      unattended << "tessaly: " << text << "\n" << std::flush;
    } else {
      ui.MessageBox(text, MessageButtons::kOk, kProgramTitle);
    }
  });
}

}  // namespace tessaly::launch
