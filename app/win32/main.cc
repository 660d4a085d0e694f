// tessaly.exe: the wizard in a window. Takes the command line as the one
// text Windows keeps, starts the wizard on the machine's backends, then
// runs the message loop until the wizard ends the program.
#include "windows_h.h"
#include <commctrl.h>
#include <ole2.h>

#include <string>

#include "machine_wizard.h"
#include "version_text.h"
#include "win32_ui.h"
#include "window_input.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  using namespace tessaly;
  // The folder browser's new style needs OLE on this thread.
  OleInitialize(nullptr);
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);

  launch::WindowRequest request = launch::ReadWindowWords({});
  win32::Win32Ui ui;
  // A window program has no console to print to: its usage and its
  // refusals come in a message box.
  switch (request.kind) {
    case launch::WindowRequest::Kind::kHelp:
      ui.MessageBox(launch::WindowUsageText(), MessageButtons::kOk, "Tessaly");
      return 0;
    case launch::WindowRequest::Kind::kVersion:
      ui.MessageBox(launch::VersionText("tessaly"), MessageButtons::kOk, "Tessaly");
      return 0;
    case launch::WindowRequest::Kind::kError:
      ui.MessageBox(request.error, MessageButtons::kOk, "Tessaly");
      return 2;
    case launch::WindowRequest::Kind::kRun:
      break;
  }
  launch::MachineWizard wizard(ui, std::move(request.input));
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
