// tessaly: the wizard in a window. Builds the POSIX services, sorts the
// words the shell split into files and switches, and hands them to the
// wizard apart; then runs the event loop until the wizard ends the program.
#include <QApplication>
#include <iostream>
#include <string>
#include <vector>

#include "desktop_identity.h"
#include "platform/posix/existing_short_paths.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_locale.h"
#include "platform/posix/posix_network_status.h"
#include "platform/posix/posix_program.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/shell_words.h"
#include "platform/posix/sqlite_registry.h"
#include "platform/posix/standard_random.h"
#include "platform/posix/system_clock.h"
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

  PosixFileSystem fileSystem;
  app.installEventFilter(new qt::ForgetAnswersWhenAPersonActs(fileSystem, &app));
  SqliteRegistry registry;
  SettingsStore store(registry);
  qt::QtUi ui;
  SystemClock clock;
  PosixLocale locale;
  StandardRandom random;
  PosixProgram program(sorted.switches);
  PosixShell shell;
  PosixNetworkStatus network;
  ExistingShortPaths shortPaths(fileSystem);

  fTessaly form(WizardServices{fileSystem, store, ui, clock, locale, random, program, shell,
                               network, shortPaths});
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
