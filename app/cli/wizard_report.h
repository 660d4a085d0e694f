#ifndef TESSALY_APP_CLI_WIZARD_REPORT_H_
#define TESSALY_APP_CLI_WIZARD_REPORT_H_

#include <ostream>
#include <string>
#include <string_view>

#include "controls/signal.h"
#include "log_printer.h"
#include "platform/file_system.h"
#include "wizard/tessaly_form.h"

namespace tessaly::cli {

// What the window would show at the end of the command line's work: the
// change log after a rename run, the preview after step 3; otherwise a
// note on `messages` that nothing was renamed and how far the wizard got.
void ReportWizard(const fTessaly& form, std::ostream& out, std::ostream& messages,
                  const Colours& colours);

// Writes each file's line of the change log in JSON on `out` the moment
// the run knows its outcome, flushed: full native paths, the new one where
// the file is on the disk (folders as `files` finds them). For as long as
// the handle is kept.
Connection StreamJson(fTessaly& form, FileSystem& files, std::ostream& out);

// How the end is reported.
struct ReportStyle {
  bool json = false;
  Colours colours;
  // A dry run's plan: unchanged files too, and the folder paths are shown
  // relative to (see PlanView).
  bool unchangedToo = false;
  std::string here;
};

// What the console shows when the command line's work is done: the paths
// of the command line that were left out, on `messages`; then for a dry
// run held back from the run, what the run would do (see dry_run.h) and a
// summary on `messages`; else as ReportWizard or, with `json` (whose lines
// StreamJson wrote), its notes alone; and for a run stopped on request,
// how far it got. Returns the exit status: ExitStatus, or 1 when a dry
// run found a clash.
int ReportEnd(const fTessaly& form, FileSystem& files, const ReportStyle& style,
              std::ostream& out, std::ostream& messages);

// The short code of an outcome in JSON, such as "completed".
std::string_view OutcomeCode(Outcome outcome);

// 0 when every file ended "(Completed)" or "(No Change}" (or none ran)
// and every path of the command line went into the list, else 1.
int ExitStatus(const fTessaly& form);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_WIZARD_REPORT_H_
