#include "wizard/undo_log.h"

#include <array>

#include "wizard/change_log.h"

namespace tessaly {

void WriteUndoLog(RichTextBox& box, const std::vector<UndoLine>& lines, std::string_view runName,
                  const Clock& clock, const Locale& locale, const FileSystem& paths) {
  const std::string run(runName);
  ChangeLog log(box, clock, locale, paths,
                {"Undo Started at: ", " files to take back from the run " + run + ".",
                 "Restored Files - Log:", "Undo Completed at: "});
  log.WriteHead(lines.size(), kLogBoxWidth);
  std::array<std::int32_t, 8> counts{};
  for (const UndoLine& line : lines) {
    log.WriteLine(line.from, line.to, UndoOutcomeText(line.outcome), UndoOutcomeColour(line.outcome));
    ++counts[static_cast<std::size_t>(line.outcome)];
  }
  using enum UndoOutcome;
  const auto count = [&counts](UndoOutcome outcome) { return counts[static_cast<std::size_t>(outcome)]; };
  log.WriteFoot({{count(kRestored), " files were restored."},
                 {count(kWouldRestore), " files would be restored."},
                 {count(kOldNameTaken) + count(kChanged) + count(kMissing) + count(kFailed),
                  " files could not be restored."},
                 {count(kOverwritten), " files were deleted by the run and cannot be restored."},
                 {count(kCopyLeft), " files were still under their old names, a copy under the new."}});
}

}  // namespace tessaly
