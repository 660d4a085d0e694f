// tessaly: the wizard in a window. Reads the command line, starts the
// wizard on the machine's backends, then runs the event loop until the
// wizard ends the program.
#include <QApplication>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "desktop_identity.h"
#include "machine_wizard.h"
#include "person_acts.h"
#include "qt_options.h"
#include "qt_ui.h"
#include "text/visible_text.h"
#include "version_text.h"
#include "window_input.h"

namespace {

using namespace tessaly;
using Kind = launch::WindowRequest::Kind;

constexpr int kBadUsage = 2;

// The words behind the program's name, as bytes: a name need not be in the
// locale's encoding.
std::vector<std::string> Words(int argc, char** argv) {
  return std::vector<std::string>(argv + 1, argv + argc);
}

// Answers a request that opens no window: the usage, the version, or why
// the command line is refused. Nothing for a request to run.
std::optional<int> AnswerWithoutWindow(const launch::WindowRequest& request) {
  switch (request.kind) {
    case Kind::kHelp:
      std::cout << launch::WindowUsageText();
      return 0;
    case Kind::kVersion:
      std::cout << launch::VersionText("tessaly");
      return 0;
    case Kind::kError:
      std::cerr << "tessaly: " << text::Visible(request.error, text::Layout::kNone)
                << "\nTry 'tessaly --help'.\n";
      return kBadUsage;
    case Kind::kRun:
      break;
  }
  return std::nullopt;
}

}  // namespace

int main(int argc, char** argv) {
  // Read before Qt wants a display, which --help and a bad word need not.
  const launch::WindowRequest early = launch::ReadWindowWords(Words(argc, argv), qt::QtOptionWords);
  if (auto answered = AnswerWithoutWindow(early)) return *answered;
  QApplication app(argc, argv);  // takes Qt's own options out of argv
  // The program ends when the wizard says so, not when a window closes:
  // with "/hide" it lives on without one.
  QApplication::setQuitOnLastWindowClosed(false);
  qt::SetDesktopIdentity();

  launch::WindowRequest request = launch::ReadWindowWords(Words(argc, argv));
  if (auto answered = AnswerWithoutWindow(request)) return *answered;

  qt::QtUi ui;
  launch::MachineWizard wizard(ui, std::move(request.input));
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
