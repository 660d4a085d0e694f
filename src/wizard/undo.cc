// Taking back a run from its journal: each file goes back where the run
// found it, under the same rules as the run itself.

#include "wizard/undo.h"

#include <algorithm>
#include <map>
#include <optional>

#include "wizard/change_log.h"

namespace tessaly {

namespace {

using Change = JournalChange;
using Result = JournalChange::Result;

// The same file as `before`, short of what a move itself changes: the
// change time, and across file systems the identity.
bool MovedFrom(const FileVersion& now, const FileVersion& before) {
  return now.size == before.size && now.modified == before.modified &&
         (now.identity == before.identity || now.identity.device != before.identity.device);
}

// Where the run left one of its files, and where that file came from.
struct LeftAt {
  std::string path;
  FileVersion version;
  bool exact = true;  // `version` was read after the move; else only MovedFrom holds
  std::string origin;
};

class Undoer {
 public:
  Undoer(const JournalContent& journal, FileSystem& files, RunJournal* record)
      : journal_(journal), files_(files), record_(record) {}

  std::vector<UndoLine> Run() {
    std::vector<int> order;
    std::map<int, std::vector<const Change*>> byFile;
    for (const Change& change : journal_.changes) {
      auto& changes = byFile[change.file];
      if (changes.empty()) order.push_back(change.file);
      changes.push_back(&change);
      if (change.kind == Change::Kind::kDelete && DeleteHappened(change)) {
        deleted_.push_back(change.before);
      }
    }
    for (auto file = order.rbegin(); file != order.rend(); ++file) UndoFile(byFile[*file]);
    return std::move(lines_);
  }

 private:
  void UndoFile(const std::vector<const Change*>& changes) {
    std::vector<const Change*> moves;
    std::copy_if(changes.begin(), changes.end(), std::back_inserter(moves),
                 [](const Change* change) { return change->kind == Change::Kind::kMove; });
    bool copyLeft = false;
    if (const std::optional<LeftAt> left = WhereLeft(moves, copyLeft)) {
      if (const std::optional<UndoOutcome> outcome = MoveBack(*left)) {
        lines_.push_back({left->path, left->origin, *outcome});
      }
    } else if (copyLeft) {
      lines_.push_back({moves.back()->to, moves.back()->from, UndoOutcome::kCopyLeft});
    }
    // A deleted file of this run's own is told on that file's line.
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
      const Change& deletion = **change;
      if (deletion.kind == Change::Kind::kDelete && DeleteHappened(deletion) &&
          !LeftByMove(deletion.before)) {
        lines_.push_back({deletion.from, deletion.from, UndoOutcome::kOverwritten});
      }
    }
  }

  // The newest of `moves` that took place, and the first of the moves that
  // led there one after the other; nothing if none took place.
  std::optional<LeftAt> WhereLeft(const std::vector<const Change*>& moves, bool& copyLeft) {
    for (std::size_t k = moves.size(); k-- > 0;) {
      const Change& move = *moves[k];
      std::optional<LeftAt> left;
      if (move.result == Result::kDone) {
        left = LeftAt{move.to, move.after.value_or(move.before), move.after.has_value(), {}};
      } else if (move.result == Result::kUnknown) {
        left = AfterUnrecordedMove(move, copyLeft);
      }
      if (!left) continue;
      std::size_t first = k;
      for (std::size_t j = k; j-- > 0;) {
        if (moves[j]->result == Result::kFailed) continue;  // it changed nothing
        if (moves[j]->result != Result::kDone || moves[j]->to != moves[first]->from) break;
        first = j;
      }
      left->origin = moves[first]->from;
      return left;
    }
    return std::nullopt;
  }

  // A move whose result the run did not live to record: the disk tells
  // whether it took place.
  std::optional<LeftAt> AfterUnrecordedMove(const Change& move, bool& copyLeft) {
    const std::optional<FileVersion> there = files_.VersionOf(move.to);
    const bool arrived = there && MovedFrom(*there, move.before);
    if (files_.VersionOf(move.from) == move.before) {
      // Still where it was: at most a copy on another disk got its new name.
      copyLeft = arrived && there->identity != move.before.identity;
      return std::nullopt;
    }
    if (!arrived) return std::nullopt;
    return LeftAt{move.to, *there, true, {}};
  }

  // Nothing when the file is back already, as after an earlier undo.
  std::optional<UndoOutcome> MoveBack(const LeftAt& left) {
    if (Deleted(left)) return UndoOutcome::kOverwritten;
    const std::optional<FileVersion> now = files_.VersionOf(left.path);
    if (!now) {
      const std::optional<FileVersion> back = files_.VersionOf(left.origin);
      if (back && back->identity == left.version.identity) return std::nullopt;
      return UndoOutcome::kMissing;
    }
    if (left.exact ? *now != left.version : !MovedFrom(*now, left.version)) {
      return UndoOutcome::kChanged;
    }
    if (OriginTaken(left)) return UndoOutcome::kOldNameTaken;
    if (record_ == nullptr) return UndoOutcome::kWouldRestore;
    record_->Moving(nextFile_++, left.path, left.origin, *now);
    const bool moved = files_.Rename(left.path, left.origin);
    record_->Moved(moved, moved ? files_.VersionOf(left.origin) : std::nullopt);
    if (moved) return UndoOutcome::kRestored;
    return OriginTaken(left) ? UndoOutcome::kOldNameTaken : UndoOutcome::kFailed;
  }

  // Another entry stands under the old path; the file itself under another
  // spelling (a change of letter case alone) does not count.
  bool OriginTaken(const LeftAt& left) {
    return files_.GetAttributes(left.origin) && !files_.OneEntry(left.path, left.origin);
  }

  bool DeleteHappened(const Change& deletion) {
    if (deletion.result != Result::kUnknown) return deletion.result == Result::kDone;
    return files_.VersionOf(deletion.from) != deletion.before;
  }

  bool Deleted(const LeftAt& left) const {
    return std::any_of(deleted_.begin(), deleted_.end(), [&](const FileVersion& deleted) {
      return left.exact ? deleted == left.version : MovedFrom(deleted, left.version);
    });
  }

  // Whether a move of this run left `version` behind. A move recorded
  // without the version after it (an atomic rename) is known by the one
  // before.
  bool LeftByMove(const FileVersion& version) const {
    return std::any_of(journal_.changes.begin(), journal_.changes.end(), [&](const Change& change) {
      if (change.kind != Change::Kind::kMove) return false;
      if (change.after) return *change.after == version;
      return change.result == Result::kDone && MovedFrom(version, change.before);
    });
  }

  const JournalContent& journal_;
  FileSystem& files_;
  RunJournal* record_;
  std::vector<FileVersion> deleted_;
  std::vector<UndoLine> lines_;
  int nextFile_ = 0;
};

struct OutcomeWords {
  std::string_view text;
  std::string_view code;
  Outcome like;  // the run's outcome whose colour it shares
};

OutcomeWords WordsOf(UndoOutcome outcome) {
  switch (outcome) {
    case UndoOutcome::kRestored:
      return {"(Restored)", "restored", Outcome::kCompleted};
    case UndoOutcome::kWouldRestore:
      return {"(Would Be Restored)", "would-restore", Outcome::kNoChange};
    case UndoOutcome::kOldNameTaken:
      return {"(Not Restored - Old Name Taken)", "old-name-taken", Outcome::kFailedExists};
    case UndoOutcome::kChanged:
      return {"(Not Restored - File Changed)", "file-changed", Outcome::kFailedRenaming};
    case UndoOutcome::kMissing:
      return {"(Not Restored - File Not Found)", "file-not-found", Outcome::kFailedRenaming};
    case UndoOutcome::kFailed:
      return {"(Not Restored - Error Renaming File)", "failed-renaming", Outcome::kFailedRenaming};
    case UndoOutcome::kOverwritten:
      return {"(Cannot Be Restored - Overwritten)", "overwritten", Outcome::kFailedRenaming};
    case UndoOutcome::kCopyLeft:
      return {"(Not Moved - Copy Left Under New Name)", "copy-left", Outcome::kNoChange};
  }
  return {};
}

}  // namespace

std::string_view UndoOutcomeText(UndoOutcome outcome) { return WordsOf(outcome).text; }
Rgb UndoOutcomeColour(UndoOutcome outcome) { return OutcomeColour(WordsOf(outcome).like); }
std::string_view UndoOutcomeCode(UndoOutcome outcome) { return WordsOf(outcome).code; }

std::vector<UndoLine> UndoRun(const JournalContent& journal, FileSystem& files,
                              RunJournal* record) {
  // Time has passed since the run: nothing known of the disk still holds.
  files.ForgetAnswers();
  std::vector<UndoLine> lines = Undoer(journal, files, record).Run();
  if (record != nullptr) record->Finish();
  return lines;
}

}  // namespace tessaly
