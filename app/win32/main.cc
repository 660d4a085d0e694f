// tessaly.exe: the wizard in a window. Takes the command line as the one
// text Windows keeps, starts the wizard on the machine's backends, then
// runs the message loop until the wizard ends the program.
#include "windows_h.h"
#include <commctrl.h>
#include <ole2.h>

#include <string>

#include "machine_wizard.h"
#include "win32_ui.h"
#include "window_input.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  using namespace tessaly;
  // The folder browser's new style needs OLE on this thread.
  OleInitialize(nullptr);
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);

  std::string refusal;
  std::optional<launch::WizardInput> input = launch::WindowInput({}, refusal);
  win32::Win32Ui ui;
  if (!input) {
    ui.MessageBox(refusal, MessageButtons::kOk, "Tessaly");
    return 2;
  }
  launch::MachineWizard wizard(ui, std::move(*input));
  // Time has passed before a person acts, in which the disk may have changed.
  ui.pump().onPersonActs = [&wizard] { wizard.fileSystem().ForgetAnswers(); };
  // Cancel, the close box or "/exit" end the program at once, also in the
  // middle of a loop: the loop stops at its next file, and the message loop
  // it runs under returns.
  const Connection ending = wizard.form().programEnded.Connect([] { PostQuitMessage(0); });
  const Connection warning = launch::TellWhenListFull(wizard.form(), ui);
  wizard.Start();
  const int code = wizard.form().ended() ? 0 : ui.pump().Run();
  ui.DropViews();
  OleUninitialize();
  return code;
}
