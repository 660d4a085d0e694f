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
  MoveFile(source, target, false);
}

RenameAnswer fTessaly::MoveFile(const std::string& source, const std::string& target,
                                bool onlyIfFree) {
  FileSystem& files = services_.fileSystem;
  const std::optional<FileVersion> moving = files.VersionOf(source);
  // Recorded before the move, so a run killed at any point leaves a
  // journal that names it.
  if (journal_) journal_->Moving(journalFile_, source, target, moving.value_or(FileVersion{}));
  RenameAnswer answer = RenameAnswer::kFailed;
  if (onlyIfFree) {
    answer = files.RenameIfFree(source, target);
  } else if (files.Rename(source, target)) {
    answer = RenameAnswer::kMoved;
  }
  if (answer != RenameAnswer::kMoved) {
    // An atomic rename changed nothing but the name: the version before,
    // short of its change time, tells an undo that it is the very file.
    if (journal_) journal_->Moved(answer == RenameAnswer::kRenamed, std::nullopt);
    return answer;
  }
  // The version under the new name tells an undo that it is the very file.
  if (journal_) journal_->Moved(true, files.VersionOf(target));
  // Whatever stands under the old name now is removed only if it is the
  // very file the move left behind; a file another program put there is
  // theirs.
  if (moving && FileExists(target) && FileExists(source) && !files.OneEntry(source, target)) {
    files.DeleteIfUnchanged(source, *moving);
  }
  return answer;
}

void fTessaly::RunRenames() {
  ClearResults();
  outcomes_.clear();
  lastOutcome_ = {};
  stopped_ = false;
  if (ended_ || lstFiles.ListCount() == 0) return;
  const auto n = static_cast<std::int32_t>(lstFiles.ListCount());
  lstFilesC.Reserve(static_cast<std::size_t>(n), NewPathBytes());
  stepRunning_ = true;
  OpenProgress(kRunProgressCaption);
  ChangeLog log(tLog, services_.clock, services_.locale, services_.fileSystem);
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
    // Copies: the list may change while events run.
    std::string oldPath(lstFiles.List(i));
    journalFile_ = i;
    lstFilesC.AddItem(Convert(oldPath));
    std::string newPath(lstFilesC.List(lstFilesC.ListCount() - 1));
    const Outcome outcome = RenameOneFile(oldPath, newPath);
    if (ended_) break;
    counters.Count(outcome);
    log.WriteFileLine(oldPath, newPath, outcome);
    outcomes_.push_back(outcome);
    lastOutcome_ = {std::move(oldPath), std::move(newPath), outcome};
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
  FileSystem& files = services_.fileSystem;
  // A new path that the disk takes for the old one names the file itself:
  // taken, as the disk would answer.
  // The file's own name is asked for: to the disk it is the same look, and
  // one it answers without searching the folder for another spelling.
  if (files.SameName(newPath, oldPath)) {
    return FileExists(oldPath) ? TwoStageRename(oldPath, newPath) : DirectRoad(oldPath, newPath);
  }
  // The direct road's look at the new path, its move and the looks after
  // it, in one rename that takes no name an entry holds: an atomic one
  // answers them all at one instant, as looks just before and after would.
  // Anything else is asked of the disk.
  const RenameAnswer tried = MoveFile(oldPath, newPath, true);
  if (tried == RenameAnswer::kRenamed) return Outcome::kCompleted;
  if (tried == RenameAnswer::kMoved) return DirectRoadOutcome(oldPath, newPath);
  if (FileExists(newPath)) return TwoStageRename(oldPath, newPath);
  if (tried == RenameAnswer::kFailed) return Outcome::kFailedRenaming;
  // Held by a folder, or freed since: the direct road as ever.
  return DirectRoad(oldPath, newPath);
}

Outcome fTessaly::DirectRoad(const std::string& oldPath, const std::string& newPath) {
  RenameFile(oldPath, newPath);
  return DirectRoadOutcome(oldPath, newPath);
}

Outcome fTessaly::DirectRoadOutcome(const std::string& oldPath, const std::string& newPath) const {
  if (!FileExists(newPath)) return Outcome::kFailedRenaming;
  return FileExists(oldPath) ? Outcome::kErrorRemovingOriginal : Outcome::kCompleted;
}

Outcome fTessaly::TwoStageRename(const std::string& oldPath, const std::string& newPath) {
  const std::string tempPath = newPath + ".temp";
  if (FileExists("temp-" + newPath)) return Outcome::kFailedExists;
  // Each stage is first tried as one rename that takes no name an entry
  // holds; a name it finds taken goes the way of the question.
  const RenameAnswer first = MoveFile(oldPath, tempPath, true);
  const bool tempWasTaken =
      first == RenameAnswer::kTaken || (first == RenameAnswer::kFailed && FileExists(tempPath));
  if (tempWasTaken) RenameFile(oldPath, tempPath);
  services_.ui.LetPendingEventsRun();
  if (ended_) return Outcome::kFailedExists;
  if (!FileExists(tempPath)) return Outcome::kFailedExists;
  // When another file held the temporary name and ours did not move, going
  // on would put that other file in place of the new path.
  if (tempWasTaken && FileExists(oldPath) && !SameEntry(oldPath, tempPath)) {
    return Outcome::kFailedExists;
  }
  const RenameAnswer second = MoveFile(tempPath, newPath, true);
  if (second == RenameAnswer::kRenamed) return Outcome::kCompleted;
  if (second == RenameAnswer::kTaken || (second == RenameAnswer::kFailed && FileExists(newPath))) {
    RenameFile(tempPath, newPath);
  }
  if (!FileExists(newPath)) return Outcome::kFailedRenaming;
  return FileExists(tempPath) ? Outcome::kErrorRemovingTemp : Outcome::kCompleted;
}

}  // namespace tessaly
