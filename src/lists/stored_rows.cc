#include "lists/stored_rows.h"

#include "text/text_ops.h"
#include "text/whole_number.h"

namespace tessaly {

std::vector<StoredRow> ParseStoredRows(std::string_view stored) {
  std::vector<StoredRow> rows;
  const auto pieces = text::Split(stored, kRowEnd);
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
    const auto parts = text::Split(pieces[i], kFlagMark);
    if (parts.empty()) continue;
    const auto flag = parts.size() > 1 ? text::ParseInteger16(parts[1]) : std::nullopt;
    rows.push_back({std::string(parts[0]), flag == 1});
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

bool HoldsSeparator(std::string_view text) {
  return text.find(kRowEnd) != std::string_view::npos ||
         text.find(kFlagMark) != std::string_view::npos;
}

}  // namespace tessaly
