#ifndef TESSALY_JOURNAL_JOURNAL_LINE_H_
#define TESSALY_JOURNAL_JOURNAL_LINE_H_

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly::journal {

// One record as one line of text: its fields separated by blanks, a check
// of the line behind them, and a line end. In a field every byte that
// could break the line or be misread (blanks, control characters, "%",
// bytes that are no UTF-8) is written as "%" and two hex digits, so any
// name survives the trip; the check tells a line cut off or spoilt.
std::string Line(std::initializer_list<std::string_view> fields);
// The same, added to the end of `out`.
void AppendLine(std::string& out, std::initializer_list<std::string_view> fields);

// The fields of every whole, unspoilt line of `text`, in order: a line
// cut off by the end of the text, or whose check fails, is left out.
std::vector<std::vector<std::string>> ReadLines(std::string_view text);

}  // namespace tessaly::journal

#endif  // TESSALY_JOURNAL_JOURNAL_LINE_H_
