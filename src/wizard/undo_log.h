#ifndef TESSALY_WIZARD_UNDO_LOG_H_
#define TESSALY_WIZARD_UNDO_LOG_H_

#include <string_view>
#include <vector>

#include "controls/rich_text_box.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "wizard/undo.h"

namespace tessaly {

// Writes the log of an undo of the run `runName` into `box`, in the change
// log's form: head, one coloured line per file (where the run left it >
// where it goes back to), foot with the counts.
void WriteUndoLog(RichTextBox& box, const std::vector<UndoLine>& lines, std::string_view runName,
                  const Clock& clock, const Locale& locale, const FileSystem& paths);

}  // namespace tessaly

#endif  // TESSALY_WIZARD_UNDO_LOG_H_
