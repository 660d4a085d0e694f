#include "wizard_report.h"

#include "wizard/wizard_texts.h"

namespace tessaly::cli {

void ReportWizard(const fTessaly& form, std::ostream& out, std::ostream& messages,
                  ColourMode colours) {
  if (form.refusedForLimit() > 0) messages << "tessaly-cli: " << ListFullText(form.refusedForLimit()) << "\n";
  if (form.tLog.Length() > 0) {
    PrintRichText(form.tLog, out, colours);
  } else if (form.CurrentStep == 3 && form.tOutput.Length() > 0) {
    PrintRichText(form.tOutput, out, colours);
  } else if (form.CurrentStep == 4) {
    messages << "tessaly-cli: no files to rename (paths that do not exist, folders and"
                " repeats are left out)\n";
  } else {
    messages << "tessaly-cli: nothing renamed; the wizard stopped on step " << form.CurrentStep
             << " with " << form.lstFiles.ListCount()
             << " files listed (/step:3 previews, /step:4 renames)\n";
  }
  out << std::flush;
}

}  // namespace tessaly::cli
