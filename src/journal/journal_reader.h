#ifndef TESSALY_JOURNAL_JOURNAL_READER_H_
#define TESSALY_JOURNAL_JOURNAL_READER_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace tessaly {

// One change of the disk as a journal records it.
struct JournalChange {
  enum class Kind { kMove, kDelete };
  // kUnknown: no result was recorded, as when the run was killed between
  // the record and the change; only the disk can tell.
  enum class Result { kUnknown, kDone, kFailed };

  Kind kind = Kind::kMove;
  int file = 0;      // the number of the run's file it served
  std::string from;  // a delete: the file deleted
  std::string to;    // a move: the new path
  FileVersion before;
  Result result = Result::kUnknown;
  std::optional<FileVersion> after;  // a move done: the version under the new path
};

// What a journal says about its run.
struct JournalContent {
  bool undo = false;    // the journal of an undo
  std::string undoes;   // the run an undo took back
  std::string started;  // "2026-11-18 14:02:09"
  std::vector<JournalChange> changes;
  bool finished = false;  // the run went through to its end
};

// Reads a journal's text. Lines that are cut off or spoilt are left out;
// nothing if the head line is missing or of another format.
std::optional<JournalContent> ReadJournal(std::string_view text);

}  // namespace tessaly

#endif  // TESSALY_JOURNAL_JOURNAL_READER_H_
