#ifndef TESSALY_WIZARD_START_UP_H_
#define TESSALY_WIZARD_START_UP_H_

#include <string>
#include <vector>

#include "platform/ui.h"
#include "wizard/tessaly_form.h"

namespace tessaly {

// The start of the program: loads the wizard, which does the command
// line's work, then shows it unless the command line holds "/hide" (exact,
// anywhere) or the program has already ended. From here on only events run.
void StartWizard(fTessaly& form, Ui& ui);

// The same with the files apart from the switches, where a shell has split
// the words (see fTessaly::GiveFilesApart).
void StartWizard(fTessaly& form, Ui& ui, std::vector<std::string> files, std::string switches);

}  // namespace tessaly

#endif  // TESSALY_WIZARD_START_UP_H_
