#include "text_rows.h"

#include <algorithm>

namespace tessaly::win32 {

void TextRows::Clear() {
  firstRow_.assign(1, 0);
  breaks_.clear();
  widest_ = 0;
}

void TextRows::Lay(std::string_view text, const LineIndex& lines, std::size_t first, HDC dc,
                   int wrapWidth) {
  const std::size_t laid = firstRow_.size() - 1;
  first = std::min(first, laid);
  for (std::size_t line = first; line < laid; ++line) breaks_.erase(line);
  firstRow_.resize(first + 1);
  for (std::size_t line = first; line < lines.Count(); ++line) {
    const std::size_t from = lines[line].byte;
    LineIndex::Shown(text.substr(from, lines.EndByte(line) - from), lines[line].character,
                     units_, characters_);
    Measure(dc);
    std::size_t rows = 1;
    if (wrapWidth > 0) {
      std::vector<std::size_t> breaks = Breaks(wrapWidth);
      rows += breaks.size();
      if (!breaks.empty()) breaks_[line] = std::move(breaks);
    } else if (!extents_.empty()) {
      widest_ = std::max(widest_, extents_.back());
    }
    firstRow_.push_back(firstRow_.back() + rows);
  }
}

void TextRows::Measure(HDC dc) {
  const HGDIOBJ font = GetCurrentObject(dc, OBJ_FONT);
  if (font != tableFont_) {
    tableFont_ = font;
    widths_.assign(kTabled, 0);
    if (!GetCharWidth32W(dc, 0, kTabled - 1, widths_.data())) widths_.clear();
  }
  extents_.resize(units_.size());
  const bool tabled = !widths_.empty() && std::all_of(units_.begin(), units_.end(),
                                                      [](wchar_t unit) { return unit < kTabled; });
  if (!tabled) {
    SIZE size{};
    if (!units_.empty()) {
      GetTextExtentExPointW(dc, units_.data(), static_cast<int>(units_.size()), 0, nullptr,
                            extents_.data(), &size);
    }
    return;
  }
  int sum = 0;
  for (std::size_t i = 0; i < units_.size(); ++i) extents_[i] = sum += widths_[units_[i]];
}

std::vector<std::size_t> TextRows::Breaks(int width) const {
  std::vector<std::size_t> breaks;
  std::size_t start = 0;
  int startX = 0;
  while (start < units_.size()) {
    std::size_t end = start;
    while (end < units_.size() && extents_[end] - startX <= width) ++end;
    if (end == units_.size()) break;
    end = std::max(end, start + 1);
    // Keep a surrogate pair whole.
    if (end < units_.size() && (units_[end] & 0xFC00) == 0xDC00 && end - start > 1) --end;
    // After the last blank that fits, when there is one.
    for (std::size_t blank = end; blank > start + 1; --blank) {
      if (units_[blank - 1] == L' ') {
        end = blank;
        break;
      }
    }
    breaks.push_back(end);
    startX = extents_[end - 1];
    start = end;
  }
  return breaks;
}

std::size_t TextRows::LineOfRow(std::size_t row) const {
  const auto after = std::upper_bound(firstRow_.begin(), firstRow_.end() - 1, row);
  return static_cast<std::size_t>(after - firstRow_.begin()) - 1;
}

TextRows::Span TextRows::RowSpan(const LineIndex& lines, std::size_t line, std::size_t row) const {
  const std::size_t length = lines.EndUnit(line) - lines[line].unit;
  const auto found = breaks_.find(line);
  if (found == breaks_.end()) return {0, length};
  const std::vector<std::size_t>& breaks = found->second;
  const std::size_t index = row - firstRow_[line];
  return {index == 0 ? 0 : breaks[index - 1], index < breaks.size() ? breaks[index] : length};
}

std::size_t TextRows::RowOf(std::size_t line, std::size_t unit) const {
  const auto found = breaks_.find(line);
  if (found == breaks_.end()) return firstRow_[line];
  const std::vector<std::size_t>& breaks = found->second;
  return firstRow_[line] +
         static_cast<std::size_t>(std::upper_bound(breaks.begin(), breaks.end(), unit) - breaks.begin());
}

}  // namespace tessaly::win32
