#ifndef TESSALY_APP_CLI_WIZARD_REPORT_H_
#define TESSALY_APP_CLI_WIZARD_REPORT_H_

#include <ostream>

#include "log_printer.h"
#include "wizard/tessaly_form.h"

namespace tessaly::cli {

// What the window would show at the end of the command line's work: the
// change log after a rename run, the preview after step 3; otherwise a
// note on `messages` that nothing was renamed and how far the wizard got.
void ReportWizard(const fTessaly& form, std::ostream& out, std::ostream& messages,
                  ColourMode colours);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_WIZARD_REPORT_H_
