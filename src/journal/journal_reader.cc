#include "journal/journal_reader.h"

#include <charconv>

#include "journal/journal_line.h"
#include "journal/journal_records.h"

namespace tessaly {

namespace {

using Fields = std::vector<std::string>;

template <typename Number>
bool ReadNumber(const std::string& field, Number& value) {
  const char* end = field.data() + field.size();
  const auto read = std::from_chars(field.data(), end, value);
  return !field.empty() && read.ec == std::errc() && read.ptr == end;
}

// The five fields from `at` as a version.
bool ReadVersion(const Fields& fields, std::size_t at, FileVersion& version) {
  return fields.size() == at + 5 && ReadNumber(fields[at], version.identity.device) &&
         ReadNumber(fields[at + 1], version.identity.node) &&
         ReadNumber(fields[at + 2], version.size) && ReadNumber(fields[at + 3], version.modified) &&
         ReadNumber(fields[at + 4], version.changed);
}

// A move or delete record; false for anything else.
bool ReadChange(const Fields& fields, JournalChange& change) {
  const bool move = fields[0] == journal::kMove;
  if (!move && fields[0] != journal::kDelete) return false;
  change.kind = move ? JournalChange::Kind::kMove : JournalChange::Kind::kDelete;
  const std::size_t paths = move ? 2 : 1;
  if (fields.size() < 2 + paths || !ReadNumber(fields[1], change.file)) return false;
  change.from = fields[2];
  if (move) change.to = fields[3];
  return ReadVersion(fields, 2 + paths, change.before);
}

// A result for the change above it, which has none yet.
void ReadResult(const Fields& fields, JournalChange& change) {
  if (fields[0] == journal::kFailed) {
    change.result = JournalChange::Result::kFailed;
    return;
  }
  change.result = JournalChange::Result::kDone;
  FileVersion after;
  if (ReadVersion(fields, 1, after)) change.after = after;
}

bool ReadHead(const Fields& fields, JournalContent& content) {
  if (fields.size() < 5 || fields[0] != journal::kMagic || fields[1] != journal::kFormat) {
    return false;
  }
  content.undo = fields[2] == journal::kUndo;
  if (content.undo != (fields.size() == 6)) return false;
  if (content.undo) content.undoes = fields[5];
  content.started = fields[3] + " " + fields[4];
  return content.undo || fields[2] == journal::kRun;
}

}  // namespace

std::optional<JournalContent> ReadJournal(std::string_view text) {
  const std::vector<Fields> lines = journal::ReadLines(text);
  JournalContent content;
  if (lines.empty() || !ReadHead(lines[0], content)) return std::nullopt;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const Fields& fields = lines[i];
    JournalChange change;
    if (ReadChange(fields, change)) {
      content.changes.push_back(std::move(change));
    } else if ((fields[0] == journal::kDone || fields[0] == journal::kFailed) &&
               !content.changes.empty() &&
               content.changes.back().result == JournalChange::Result::kUnknown) {
      ReadResult(fields, content.changes.back());
    } else if (fields[0] == journal::kEnd) {
      content.finished = true;
    }
  }
  return content;
}

}  // namespace tessaly
