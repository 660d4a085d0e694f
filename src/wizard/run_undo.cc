// Step 4's Undo: the run just made taken back from its journal, by the
// same undo as the console's, and journaled in its turn.

#include "journal/journal_reader.h"
#include "platform/program_info.h"
#include "wizard/tessaly_form.h"
#include "wizard/undo.h"
#include "wizard/undo_log.h"

namespace tessaly {

// A journal with a gap would take back part of the run without a word
// about the rest; the console can still undo what it holds.
bool fTessaly::RunCanBeUndone() const {
  return journal_ && journal_->changedDisk() && !journal_->incomplete();
}

void fTessaly::cmdUndo_Click() {
  if (stepRunning_ || ended_ || !cmdUndo.visible() || !RunCanBeUndone()) return;
  // One undo from the window; the undo of the undo is the console's.
  cmdUndo.SetVisible(false);
  const std::string run = journal_->name();
  const std::optional<std::string> text = services_.journals->Read(run);
  const std::optional<JournalContent> content = text ? ReadJournal(*text) : std::nullopt;
  if (!content) {
    services_.ui.MessageBox("The journal of run " + run + " cannot be read; no file was moved back.",
                            MessageButtons::kOk, kProgramTitle);
    return;
  }
  RunJournal record(*services_.journals, services_.clock, run);
  const std::vector<UndoLine> lines = UndoRun(*content, services_.fileSystem, &record);
  // In the run's place: each line names both paths of its file, and the
  // undo's outcome shows without scrolling past a long run.
  WriteUndoLog(tLog, lines, run, services_.clock, services_.locale, services_.fileSystem);
}

}  // namespace tessaly
