#ifndef TESSALY_WIZARD_UNDO_H_
#define TESSALY_WIZARD_UNDO_H_

#include <string>
#include <string_view>
#include <vector>

#include "controls/rich_text_box.h"
#include "journal/journal_reader.h"
#include "journal/run_journal.h"
#include "platform/file_system.h"

namespace tessaly {

// What became of one file in an undo.
enum class UndoOutcome {
  kRestored,      // back under its old path
  kWouldRestore,  // a dry run would put it back
  kOldNameTaken,  // another entry stands under its old path
  kChanged,       // the entry where the run left it is not that file as the run left it
  kMissing,       // nothing stands where the run left it
  kFailed,        // the move back failed
  kOverwritten,   // the run deleted it on the person's Yes: it cannot come back
  kCopyLeft,      // the run was killed moving it: it is under its old path, a copy under the new
};

// The undo log's word for an outcome, such as "(Restored)"; its colour;
// its short code for JSON, such as "restored".
std::string_view UndoOutcomeText(UndoOutcome outcome);
Rgb UndoOutcomeColour(UndoOutcome outcome);
std::string_view UndoOutcomeCode(UndoOutcome outcome);

// One file of an undo: where the run left it, and where it goes back to.
struct UndoLine {
  std::string from;
  std::string to;
  UndoOutcome outcome = UndoOutcome::kRestored;
};

// Takes back the run `journal` recorded, its newest change first. Each file
// the run moved goes back where the run found it, in one move (from under
// a temporary name too), only if the entry where the run left it is still
// that very file, unchanged, and its old path is free: nothing is ever
// replaced. A file the run deleted is reported, as it cannot come back.
// The undo's own moves go into `record`; without one (a dry run) nothing
// is moved and each file says what would become of it.
std::vector<UndoLine> UndoRun(const JournalContent& journal, FileSystem& files,
                              RunJournal* record);

}  // namespace tessaly

#endif  // TESSALY_WIZARD_UNDO_H_
