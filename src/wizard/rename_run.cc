// Step 4: every file converted again, moved, and its outcome read off the
// disk and written to the log.

#include "conversion/path_routines.h"
#include "text/text_ops.h"
#include "wizard/change_log.h"
#include "wizard/tessaly_form.h"
#include "wizard/wizard_texts.h"

namespace tessaly {

bool fTessaly::FileExists(std::string_view path) const {
  if (path.empty()) return false;
  const auto attributes = services_.fileSystem.GetAttributes(path);
  return attributes && (*attributes & attr::kDirectory) == 0;
}

bool fTessaly::SameEntry(std::string_view a, std::string_view b) const {
  const auto one = services_.fileSystem.IdentityOf(a);
  const auto other = services_.fileSystem.IdentityOf(b);
  return one && other && *one == *other;
}

void fTessaly::RenameFile(const std::string& source, const std::string& target) {
  FileSystem& files = services_.fileSystem;
  // A target that is the source's own entry under another spelling (on a
  // disk that folds letter case) is never offered for deletion: the rename
  // sorts it out or fails harmlessly. A hard link of the source is another
  // entry and is asked about like any other file.
  if (FileExists(target) && !files.OneEntry(source, target)) {
    // Yes deletes the file the question names, not whatever stands under
    // its name by the time the person answers.
    const std::optional<FileVersion> named = files.VersionOf(target);
    const std::string question = "The file '" + files.Shown(FileNameOf(target, 2, services_.ui)) +
                                 "' already exists. Would you like to overwrite this file?";
    const MessageAnswer answer =
        services_.ui.MessageBox(question, MessageButtons::kYesNoCancel, "Confirm Overwrite");
    // The person may have done anything to the disk while the question stood.
    files.ForgetAnswers();
    if (answer != MessageAnswer::kYes || !named) return;
    if (journal_) journal_->Deleting(journalFile_, target, *named);
    const bool deleted = files.DeleteIfUnchanged(target, *named);
    if (journal_) journal_->Deleted(deleted);
    if (!deleted) return;
  }
  const std::optional<FileVersion> moving = files.VersionOf(source);
  // Recorded before the move, so a run killed at any point leaves a
  // journal that names it; the version under the new name tells an undo
  // later that it is still the very file.
  if (journal_) journal_->Moving(journalFile_, source, target, moving.value_or(FileVersion{}));
  const bool moved = files.Rename(source, target);
  if (journal_) journal_->Moved(moved, moved ? files.VersionOf(target) : std::nullopt);
  if (!moved) return;
  // Whatever stands under the old name now is removed only if it is the
  // very file the move left behind; a file another program put there is
  // theirs.
  if (moving && FileExists(target) && FileExists(source) && !files.OneEntry(source, target)) {
    files.DeleteIfUnchanged(source, *moving);
  }
}

void fTessaly::RunRenames() {
  ClearResults();
  outcomes_.clear();
  stopped_ = false;
  if (ended_ || lstFiles.ListCount() == 0) return;
  const auto n = static_cast<std::int32_t>(lstFiles.ListCount());
  stepRunning_ = true;
  OpenProgress(kRunProgressCaption);
  ChangeLog log(tLog, services_.clock, services_.locale, services_.ui, services_.fileSystem);
  log.WriteHead(static_cast<std::size_t>(n), kLogBoxWidth);
  progress_->start(0, n);
  serial_ = 0;
  journal_.reset();
  if (services_.journals != nullptr) {
    journal_ = std::make_unique<RunJournal>(*services_.journals, services_.clock);
  }
  RunCounters counters;
  for (std::int32_t i = 0; i < n && !ended_ && i < static_cast<std::int32_t>(lstFiles.ListCount()); ++i) {
    // Asked here only, between files: a file is never left between the
    // two stages of its move.
    stopped_ = services_.stops != nullptr && services_.stops->Requested();
    if (stopped_) break;
    const std::string oldPath = lstFiles.List(i);
    journalFile_ = i;
    lstFilesC.AddItem(Convert(oldPath));
    const std::string newPath = lstFilesC.List(lstFilesC.ListCount() - 1);
    const Outcome outcome = RenameOneFile(oldPath, newPath);
    if (ended_) break;
    counters.Count(outcome);
    log.WriteFileLine(oldPath, newPath, outcome);
    outcomes_.push_back({oldPath, newPath, outcome});
    fileDone.Emit();
    progress_->setvalue(i + 1);
  }
  stepRunning_ = false;
  if (ended_) return;
  if (journal_ && stopped_) {
    journal_->Stopped();
  } else if (journal_) {
    journal_->Finish();
  }
  log.WriteFoot(counters);
  CloseProgress(stopped_ ? static_cast<std::int32_t>(outcomes_.size()) : n);
}

Outcome fTessaly::RenameOneFile(const std::string& oldPath, const std::string& newPath) {
  if (newPath == oldPath) return Outcome::kNoChange;
  if (!FileExists(newPath)) {
    RenameFile(oldPath, newPath);
    if (!FileExists(newPath)) return Outcome::kFailedRenaming;
    return FileExists(oldPath) ? Outcome::kErrorRemovingOriginal : Outcome::kCompleted;
  }
  return TwoStageRename(oldPath, newPath);
}

Outcome fTessaly::TwoStageRename(const std::string& oldPath, const std::string& newPath) {
  const std::string tempPath = newPath + ".temp";
  if (FileExists("temp-" + newPath)) return Outcome::kFailedExists;
  const bool tempWasTaken = FileExists(tempPath);
  RenameFile(oldPath, tempPath);
  services_.ui.LetPendingEventsRun();
  if (ended_) return Outcome::kFailedExists;
  if (!FileExists(tempPath)) return Outcome::kFailedExists;
  // When another file held the temporary name and ours did not move, going
  // on would put that other file in place of the new path.
  if (tempWasTaken && FileExists(oldPath) && !SameEntry(oldPath, tempPath)) {
    return Outcome::kFailedExists;
  }
  RenameFile(tempPath, newPath);
  if (!FileExists(newPath)) return Outcome::kFailedRenaming;
  return FileExists(tempPath) ? Outcome::kErrorRemovingTemp : Outcome::kCompleted;
}

}  // namespace tessaly
