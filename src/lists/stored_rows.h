#ifndef TESSALY_LISTS_STORED_ROWS_H_
#define TESSALY_LISTS_STORED_ROWS_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

// The outer form both lists are stored in: each row is its text, "%%", the
// flag "1" or "0", and "|". Nothing is escaped.
struct StoredRow {
  std::string text;
  bool checked = false;
  friend bool operator==(const StoredRow&, const StoredRow&) = default;
};

inline constexpr std::string_view kRowEnd = "|";
inline constexpr std::string_view kFlagMark = "%%";
inline constexpr std::string_view kPairMark = " >> ";

// The rows of a stored text. The piece behind the last "|" is never read;
// each piece is cut at its last "%%". A damaged piece loads as far as it
// can be read: one without "%%" is a row of that text, unchecked; a flag
// that is no number leaves it unchecked; an empty piece holds no row and is
// passed over.
std::vector<StoredRow> ParseStoredRows(std::string_view stored);

// The canonical stored text of `rows`.
std::string FormatStoredRows(const std::vector<StoredRow>& rows);

// Whether `text` could not be stored without breaking the format: only the
// row end can, since a row is read at its last "%%".
bool HoldsSeparator(std::string_view text);

// The message shown when a row's text is refused for holding a separator.
inline constexpr std::string_view kSeparatorRefusal =
    "This text cannot be added: it holds \"|\", which the list uses to separate its "
    "rows when it is saved. Please remove it and try again.";

}  // namespace tessaly

#endif  // TESSALY_LISTS_STORED_ROWS_H_
