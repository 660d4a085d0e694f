#ifndef TESSALY_APP_WIN32_TEXT_ROWS_H_
#define TESSALY_APP_WIN32_TEXT_ROWS_H_

#include "windows_h.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "line_index.h"

namespace tessaly::win32 {

// The rows a view draws its lines in: one a line, or, when lines wrap, as
// many as a line needs at the view's width, broken after a blank where
// one fits. Lines are measured once, as they come; all again only when the
// width they wrap at changes.
class TextRows {
 public:
  struct Span {
    std::size_t from = 0;  // units into the line
    std::size_t to = 0;
  };

  void Clear();
  // Lays out lines from `first` on; `wrapWidth` 0 runs them on.
  void Lay(std::string_view text, const LineIndex& lines, std::size_t first, HDC dc, int wrapWidth);

  std::size_t Count() const { return firstRow_.back(); }
  int Widest() const { return widest_; }
  std::size_t FirstRow(std::size_t line) const { return firstRow_[line]; }
  std::size_t LineOfRow(std::size_t row) const;
  // The units of `line` that row `row` of the view shows.
  Span RowSpan(const LineIndex& lines, std::size_t line, std::size_t row) const;
  // The row of the view that shows unit `unit` of `line`.
  std::size_t RowOf(std::size_t line, std::size_t unit) const;

 private:
  // How far each unit of `units_` ends from the line's start, into
  // extents_. Most names are written in the first characters of Unicode:
  // their widths come from a table fetched once, and a line of them costs
  // no call to the system.
  void Measure(HDC dc);
  // Where the rows after a line's first start, in its units.
  std::vector<std::size_t> Breaks(int width) const;

  std::vector<std::size_t> firstRow_{0};  // one a line, and the end
  std::unordered_map<std::size_t, std::vector<std::size_t>> breaks_;
  int widest_ = 0;
  // A line's shown text, kept between calls.
  std::wstring units_;
  std::vector<std::size_t> characters_;
  std::vector<int> extents_;
  static constexpr wchar_t kTabled = 0x300;
  HGDIOBJ tableFont_ = nullptr;
  std::vector<int> widths_;
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_TEXT_ROWS_H_
