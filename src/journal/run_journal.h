#ifndef TESSALY_JOURNAL_RUN_JOURNAL_H_
#define TESSALY_JOURNAL_RUN_JOURNAL_H_

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/run_journals.h"

namespace tessaly {

// How many journals are kept: making one removes the oldest beyond these.
inline constexpr std::size_t kJournalsKept = 50;

// The journal of one run, written as the run changes the disk: each change
// is recorded before it is made and its result after, so a journal cut off
// at any point names every change that may have taken place. The journal
// is made at the first change (a run that changes nothing leaves none; an
// undo that goes to its end always leaves one) and named by the run's
// start time. A result goes out with the record that
// follows it (or at the end), so a change costs one write. Writing never
// stops the run: after the first record that cannot be written, nothing
// more is recorded.
class RunJournal {
 public:
  // The journal of a rename run started now, or, with `undoes`, of the
  // undo of the run of that name.
  RunJournal(RunJournals& journals, const Clock& clock, std::string undoes = {});
  RunJournal(const RunJournal&) = delete;
  RunJournal& operator=(const RunJournal&) = delete;
  ~RunJournal();

  // The run's file number `file` is about to move from `from` to `to`;
  // `before` is its version now.
  void Moving(int file, std::string_view from, std::string_view to, const FileVersion& before);
  // The move above took place or not; `after` is the version under the new name.
  void Moved(bool done, const std::optional<FileVersion>& after);
  // The file `path`, at `version`, is about to be deleted for the run's file `file`.
  void Deleting(int file, std::string_view path, const FileVersion& version);
  void Deleted(bool done);
  // The run went through to its end.
  void Finish();
  // The run stopped before its end, at a request: the result held back is
  // written, and the journal stays that of an interrupted run.
  void Stopped() {
    if (!pending_.empty()) Write();
  }

  // The journal's name; empty while nothing is recorded.
  const std::string& name() const { return name_; }
  // Whether a change went unrecorded, as the journal could not be made or written.
  bool incomplete() const { return failed_; }
  // Whether a change it records took place.
  bool changedDisk() const { return changed_; }

 private:
  // Writes what is pending, making the journal first if need be.
  void Write();
  bool Open();

  RunJournals& journals_;
  CivilDateTime started_;
  std::string undoes_;
  std::string name_;
  std::unique_ptr<JournalAppender> file_;
  std::string pending_;  // records not yet written
  bool failed_ = false;
  bool changed_ = false;
};

// A journal's name for a run started at `time`, such as "2026-11-18_14-02-09".
std::string JournalName(const CivilDateTime& time);

// `time` as "2026-11-18 14:02:09".
std::string JournalTime(const CivilDateTime& time);

}  // namespace tessaly

#endif  // TESSALY_JOURNAL_RUN_JOURNAL_H_
