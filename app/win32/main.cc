// tessaly.exe: the wizard in a window. Takes the machine's services and the
// command line as the one text Windows keeps, hands them to the wizard, then
// runs the message loop until the wizard ends the program.
#include "windows_h.h"
#include <commctrl.h>
#include <ole2.h>

#include <memory>
#include <string>

#include "platform/machine.h"
#include "settings/settings_store.h"
#include "wizard/start_up.h"
#include "wizard/tessaly_form.h"
#include "wizard/wizard_texts.h"
#include "win32_ui.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  using namespace tessaly;
  // The folder browser's new style needs OLE on this thread.
  OleInitialize(nullptr);
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);

  machine::Services machine = machine::MakeServices();
  FileSystem& fileSystem = *machine.fileSystem;
  SettingsStore store(*machine.registry);
  win32::Win32Ui ui;
  // Time has passed before a person acts, in which the disk may have changed.
  ui.pump().onPersonActs = [&fileSystem] { fileSystem.ForgetAnswers(); };
  const std::unique_ptr<RunningProgram> program =
      machine::MakeProgram(machine::WholeCommandLine().value_or(""));
  const std::unique_ptr<ShortPaths> shortPaths = machine::MakeShortPaths(fileSystem);

  fTessaly form(WizardServices{fileSystem, store, ui, *machine.clock, *machine.locale,
                               *machine.random, *program, *machine.shell, *machine.network,
                               *shortPaths});
  // Cancel, the close box or "/exit" end the program at once, also in the
  // middle of a loop: the loop stops at its next file, and the message loop
  // it runs under returns.
  form.programEnded.Connect([] { PostQuitMessage(0); });
  form.listFull.Connect([&form, &ui] {
    ui.MessageBox(ListFullText(form.refusedForLimit()), MessageButtons::kOk, kProgramTitle);
  });
  StartWizard(form, ui);
  const int code = form.ended() ? 0 : ui.pump().Run();
  ui.DropViews();
  OleUninitialize();
  return code;
}
