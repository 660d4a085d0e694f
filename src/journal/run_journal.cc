#include "journal/run_journal.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <vector>

#include "journal/journal_line.h"
#include "journal/journal_records.h"

namespace tessaly {

namespace {

// Runs started within one second get a number behind the time.
constexpr int kNamesPerSecond = 99;

// A number's digits, kept on the stack: a record is written for every file.
class Number {
 public:
  template <typename Integer>
  explicit Number(Integer value) : size_(std::to_chars(digits_, digits_ + sizeof digits_, value).ptr - digits_) {}
  operator std::string_view() const { return {digits_, size_}; }

 private:
  char digits_[24];
  std::size_t size_;
};

std::string Formatted(const char* format, const CivilDateTime& time) {
  char text[64];
  std::snprintf(text, sizeof text, format, time.date.year, time.date.month, time.date.day,
                time.hour, time.minute, time.second);
  return text;
}

}  // namespace

std::string JournalName(const CivilDateTime& time) {
  return Formatted("%04d-%02d-%02d_%02d-%02d-%02d", time);
}

std::string JournalTime(const CivilDateTime& time) {
  return Formatted("%04d-%02d-%02d %02d:%02d:%02d", time);
}

RunJournal::RunJournal(RunJournals& journals, const Clock& clock, std::string undoes)
    : journals_(journals), started_(clock.Now()), undoes_(std::move(undoes)) {}

RunJournal::~RunJournal() {
  if (file_ && !pending_.empty() && !failed_) file_->Append(pending_);
}

void RunJournal::Moving(int file, std::string_view from, std::string_view to,
                        const FileVersion& before) {
  const FileIdentity& id = before.identity;
  journal::AppendLine(pending_, {journal::kMove, Number(file), from, to, Number(id.device),
                                 Number(id.node), Number(before.size), Number(before.modified),
                                 Number(before.changed)});
  Write();
}

void RunJournal::Moved(bool done, const std::optional<FileVersion>& after) {
  changed_ = changed_ || done;
  // A result goes out with the next record, in the same write: a kill
  // loses at most the result of the last change, which the disk still tells.
  if (!done || !after) {
    journal::AppendLine(pending_, {done ? journal::kDone : journal::kFailed});
    return;
  }
  const FileIdentity& id = after->identity;
  journal::AppendLine(pending_, {journal::kDone, Number(id.device), Number(id.node),
                                 Number(after->size), Number(after->modified),
                                 Number(after->changed)});
}

void RunJournal::Deleting(int file, std::string_view path, const FileVersion& version) {
  const FileIdentity& id = version.identity;
  journal::AppendLine(pending_, {journal::kDelete, Number(file), path, Number(id.device),
                                 Number(id.node), Number(version.size), Number(version.modified),
                                 Number(version.changed)});
  Write();
}

void RunJournal::Deleted(bool done) {
  changed_ = changed_ || done;
  journal::AppendLine(pending_, {done ? journal::kDone : journal::kFailed});
}

void RunJournal::Finish() {
  // An undo that moved nothing is kept all the same: its run counts as undone.
  if (!file_ && undoes_.empty()) return;
  journal::AppendLine(pending_, {journal::kEnd});
  Write();
}

void RunJournal::Write() {
  if (!failed_) failed_ = !(file_ || Open()) || !file_->Append(pending_);
  pending_.clear();
}

bool RunJournal::Open() {
  std::vector<std::string> names = journals_.Names();
  std::sort(names.begin(), names.end());
  // Room for this one among the journals kept.
  for (std::size_t i = 0; i + kJournalsKept <= names.size(); ++i) journals_.Remove(names[i]);
  const std::string base = JournalName(started_);
  for (int number = 1; number <= kNamesPerSecond && !file_; ++number) {
    char suffix[8] = "";
    if (number > 1) std::snprintf(suffix, sizeof suffix, "_%02d", number);
    file_ = journals_.Create(base + suffix);
    if (file_) name_ = base + suffix;
  }
  if (!file_) return false;
  const std::string day = JournalTime(started_).substr(0, 10);
  const std::string time = JournalTime(started_).substr(11);
  const std::string head =
      undoes_.empty()
          ? journal::Line({journal::kMagic, journal::kFormat, journal::kRun, day, time})
          : journal::Line({journal::kMagic, journal::kFormat, journal::kUndo, day, time, undoes_});
  return file_->Append(head);
}

}  // namespace tessaly
