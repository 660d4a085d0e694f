#ifndef TESSALY_APP_LAUNCH_MACHINE_WIZARD_H_
#define TESSALY_APP_LAUNCH_MACHINE_WIZARD_H_

#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "controls/signal.h"
#include "platform/machine.h"
#include "platform/ui.h"
#include "settings/settings_store.h"
#include "wizard/tessaly_form.h"

// How every front-end starts the wizard on the machine it runs on. It lives
// beside the front-ends, not in the core, because it picks the real
// backends (platform/machine.h): the core and its tests never link them.
namespace tessaly::launch {

// What the program's command line gives the wizard: the files apart from
// the switches, so no file name travels through the switch text.
struct WizardInput {
  std::vector<std::string> files;  // absolute model paths, in order
  std::string commandLine;         // the switches
};

// The wizard over this machine's backends, built the one way: the
// machine's services, the settings store over its registry, the running
// program with the command line, the short paths, and the form. A front-end
// adds its Ui and its event loop.
class MachineWizard {
 public:
  // What a front-end may put between the wizard and the machine: each
  // wraps the machine's own, which it must forward to.
  struct Layers {
    std::function<std::unique_ptr<FileSystem>(FileSystem&)> fileSystem;
    std::function<std::unique_ptr<Registry>(Registry&)> registry;
  };

  // `stops`, if given, must outlive the wizard: a run asks it between files.
  MachineWizard(Ui& ui, WizardInput input, const Layers& layers = {},
                const StopRequests* stops = nullptr);
  MachineWizard(const MachineWizard&) = delete;
  MachineWizard& operator=(const MachineWizard&) = delete;

  fTessaly& form() { return *form_; }
  // The file system as the wizard sees it.
  FileSystem& fileSystem() { return fileSystemLayer_ ? *fileSystemLayer_ : *machine_.fileSystem; }

  // Loads the wizard, which does the command line's work, and shows it
  // unless the command line holds "/hide" or the program has ended.
  void Start();

 private:
  Registry& registry() { return registryLayer_ ? *registryLayer_ : *machine_.registry; }

  Ui& ui_;
  WizardInput input_;
  machine::Services machine_;
  std::unique_ptr<FileSystem> fileSystemLayer_;
  std::unique_ptr<Registry> registryLayer_;
  SettingsStore store_;
  std::unique_ptr<RunningProgram> program_;
  std::unique_ptr<ShortPaths> shortPaths_;
  std::unique_ptr<fTessaly> form_;
};

// Tells the person in a message box, each time an add could not take every
// path because the list was full; for as long as the handle is kept. A
// command line with "/exit" or "/hide" runs unattended: the text goes to
// `unattended` instead.
Connection TellWhenListFull(fTessaly& form, Ui& ui, std::ostream& unattended = std::cerr);

}  // namespace tessaly::launch

#endif  // TESSALY_APP_LAUNCH_MACHINE_WIZARD_H_
