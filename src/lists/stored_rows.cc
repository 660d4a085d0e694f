#include "lists/stored_rows.h"

#include "text/text_ops.h"
#include "text/whole_number.h"

namespace tessaly {

std::vector<StoredRow> ParseStoredRows(std::string_view stored) {
  std::vector<StoredRow> rows;
  const auto pieces = text::Split(stored, kRowEnd);
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
    const std::string_view piece = pieces[i];
    if (piece.empty()) continue;
    // The flag is digits, so the last "%%" is the separator and a text may
    // end in "%" or hold "%%" itself.
    const std::size_t mark = piece.rfind(kFlagMark);
    if (mark == std::string_view::npos) {
      rows.push_back({std::string(piece), false});
      continue;
    }
    const auto flag = text::ParseInteger16(piece.substr(mark + kFlagMark.size()));
    rows.push_back({std::string(piece.substr(0, mark)), flag == 1});
  }
  return rows;
}

std::string FormatStoredRows(const std::vector<StoredRow>& rows) {
  std::string stored;
  for (const StoredRow& row : rows) {
    stored.append(row.text).append(kFlagMark).append(row.checked ? "1" : "0").append(kRowEnd);
  }
  return stored;
}

bool HoldsSeparator(std::string_view text) { return text.find(kRowEnd) != std::string_view::npos; }

}  // namespace tessaly
