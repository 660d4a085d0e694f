#ifndef TESSALY_APP_CLI_WIZARD_REPORT_H_
#define TESSALY_APP_CLI_WIZARD_REPORT_H_

#include <ostream>
#include <string_view>

#include "log_printer.h"
#include "platform/file_system.h"
#include "wizard/tessaly_form.h"

namespace tessaly::cli {

// What the window would show at the end of the command line's work: the
// change log after a rename run, the preview after step 3; otherwise a
// note on `messages` that nothing was renamed and how far the wizard got.
void ReportWizard(const fTessaly& form, std::ostream& out, std::ostream& messages,
                  ColourMode colours);

// The change log of the last run as JSON Lines on `out`, full native
// paths, each new one where the file is on the disk (folders as `files`
// finds them); the same notes as ReportWizard on `messages` when nothing
// ran.
void ReportWizardJson(const fTessaly& form, FileSystem& files, std::ostream& out,
                      std::ostream& messages);

// What the console shows when the command line's work is done: for a dry
// run held back from the run, what the run would do (see dry_run.h); else
// as ReportWizard or, with `json`, ReportWizardJson.
void ReportEnd(const fTessaly& form, FileSystem& files, bool json, ColourMode colours,
               std::ostream& out, std::ostream& messages);

// The short code of an outcome in JSON, such as "completed".
std::string_view OutcomeCode(Outcome outcome);

// 0 when every file ended "(Completed)" or "(No Change}" (or none ran)
// and the list took every path, else 1.
int ExitStatus(const fTessaly& form);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_WIZARD_REPORT_H_
