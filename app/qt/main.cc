// tessaly: the wizard in a window. Reads the command line, starts the
// wizard on the machine's backends, then runs the event loop until the
// wizard ends the program.
#include <QApplication>
#include <iostream>
#include <string>
#include <vector>

#include "desktop_identity.h"
#include "machine_wizard.h"
#include "person_acts.h"
#include "qt_ui.h"
#include "window_input.h"

int main(int argc, char** argv) {
  using namespace tessaly;
  QApplication app(argc, argv);  // takes Qt's own options out of argv
  // The program ends when the wizard says so, not when a window closes:
  // with "/hide" it lives on without one.
  QApplication::setQuitOnLastWindowClosed(false);
  qt::SetDesktopIdentity();

  // The bytes as given, not decoded: a name need not be in the locale's
  // encoding.
  std::string refusal;
  std::optional<launch::WizardInput> input =
      launch::WindowInput(std::vector<std::string>(argv + 1, argv + argc), refusal);
  if (!input) {
    std::cerr << "tessaly: " << refusal << "\n";
    return 2;
  }

  qt::QtUi ui;
  launch::MachineWizard wizard(ui, std::move(*input));
  app.installEventFilter(new qt::ForgetAnswersWhenAPersonActs(wizard.fileSystem(), &app));
  // Cancel, the close box or "/exit" end the program at once, also in the
  // middle of a loop: the loop stops at its next file, and the event loop
  // it runs under returns.
  const Connection ending = wizard.form().programEnded.Connect([] { QCoreApplication::exit(0); });
  const Connection warning = launch::TellWhenListFull(wizard.form(), ui);
  wizard.Start();
  const int code = wizard.form().ended() ? 0 : QApplication::exec();
  ui.DropViews();
  return code;
}
