// tessaly: the wizard in a window. Takes the machine's services, sorts the
// words the shell split into files and switches, and hands them to the
// wizard apart; then runs the event loop until the wizard ends the program.
// (Qt is built on POSIX only for now: on Windows the command line would be
// machine::WholeCommandLine(), handed over raw as the console program does.)
#include <QApplication>
#include <iostream>
#include <string>
#include <vector>

#include "desktop_identity.h"
#include "platform/machine.h"
#include "platform/posix/shell_words.h"
#include "person_acts.h"
#include "qt_ui.h"
#include "settings/settings_store.h"
#include "text/visible_text.h"
#include "wizard/start_up.h"
#include "wizard/tessaly_form.h"
#include "wizard/wizard_texts.h"

int main(int argc, char** argv) {
  using namespace tessaly;
  QApplication app(argc, argv);  // takes Qt's own options out of argv
  // The program ends when the wizard says so, not when a window closes:
  // with "/hide" it lives on without one.
  QApplication::setQuitOnLastWindowClosed(false);
  qt::SetDesktopIdentity();

  // The bytes as given, not decoded: a name need not be in the locale's
  // encoding.
  const std::vector<std::string> words(argv + 1, argv + argc);
  // "--command-line TEXT", alone, hands the wizard TEXT unchanged, for
  // exact control.
  const bool raw = words.size() == 2 && words[0] == "--command-line";
  ShellWords sorted = raw ? ShellWords{{}, words[1], {}} : SortShellWords(words, CurrentFolder());
  if (!sorted.badSwitch.empty()) {
    std::cerr << "tessaly: '" << text::Visible(sorted.badSwitch, text::Layout::kNone)
              << "' is not a switch, and no file or folder of that name exists\n";
    return 2;
  }

  machine::Services machine = machine::MakeServices();
  FileSystem& fileSystem = *machine.fileSystem;
  app.installEventFilter(new qt::ForgetAnswersWhenAPersonActs(fileSystem, &app));
  SettingsStore store(*machine.registry);
  qt::QtUi ui;
  const std::unique_ptr<RunningProgram> program = machine::MakeProgram(sorted.switches);
  const std::unique_ptr<ShortPaths> shortPaths = machine::MakeShortPaths(fileSystem);

  fTessaly form(WizardServices{fileSystem, store, ui, *machine.clock, *machine.locale,
                               *machine.random, *program, *machine.shell, *machine.network,
                               *shortPaths, machine.journals.get()});
  // Cancel, the close box or "/exit" end the program at once, also in the
  // middle of a loop: the loop stops at its next file, and the event loop
  // it runs under returns.
  form.programEnded.Connect([] { QCoreApplication::exit(0); });
  form.listFull.Connect([&form, &ui] {
    ui.MessageBox(ListFullText(form.refusedForLimit()), MessageButtons::kOk, kProgramTitle);
  });
  if (raw) {
    StartWizard(form, ui);
  } else {
    StartWizard(form, ui, std::move(sorted.files), sorted.switches);
  }
  const int code = form.ended() ? 0 : QApplication::exec();
  ui.DropViews();
  return code;
}
