#include "line_index.h"

#include <algorithm>
#include <optional>

#include "text/utf8.h"
#include "text/visible_text.h"

namespace tessaly::win32 {

namespace {

char32_t ShownCode(char32_t code) {
  const std::optional<char32_t> picture = text::ControlPicture(code);
  const char32_t shown = picture ? *picture : code;
  return shown <= 0x10FFFF ? shown : 0xFFFD;
}

std::size_t UnitsOf(char32_t shown) { return shown >= 0x10000 ? 2 : 1; }

}  // namespace

void LineIndex::Clear() { *this = LineIndex(); }

std::size_t LineIndex::Extend(std::string_view text) {
  const std::size_t firstChanged = lines_.size() - 1;
  std::size_t byte = scannedByte_;
  while (byte < text.size()) {
    if (text[byte] == '\r') {
      if (byte + 1 == text.size()) break;  // its LF may still come
      if (text[byte + 1] == '\n') {
        byte += 2;
        openCharacter_ += 2;
        openUnit_ += 2;
        lines_.push_back({byte, openCharacter_, openUnit_});
        continue;
      }
    }
    const text::DecodedChar decoded = text::DecodeAt(text, byte);
    byte += std::max<std::size_t>(decoded.length, 1);
    ++openCharacter_;
    openUnit_ += UnitsOf(ShownCode(decoded.code));
  }
  scannedByte_ = byte;
  return firstChanged;
}

std::size_t LineIndex::EndByte(std::size_t line) const {
  if (line + 1 < lines_.size()) return lines_[line + 1].byte - 2;
  return std::max(scannedByte_, lines_[line].byte);
}

std::size_t LineIndex::EndUnit(std::size_t line) const {
  return line + 1 < lines_.size() ? lines_[line + 1].unit - 2 : openUnit_;
}

std::size_t LineIndex::LineOfUnit(std::size_t unit) const {
  const auto after = std::upper_bound(lines_.begin(), lines_.end(), unit,
                                      [](std::size_t u, const Line& line) { return u < line.unit; });
  return static_cast<std::size_t>(after - lines_.begin()) - 1;
}

std::size_t LineIndex::LineOfCharacter(std::size_t character) const {
  const auto after = std::upper_bound(
      lines_.begin(), lines_.end(), character,
      [](std::size_t c, const Line& line) { return c < line.character; });
  return static_cast<std::size_t>(after - lines_.begin()) - 1;
}

void LineIndex::Shown(std::string_view line, std::size_t firstCharacter, std::wstring& units,
                      std::vector<std::size_t>& characters) {
  units.clear();
  characters.clear();
  std::size_t character = firstCharacter;
  for (std::size_t byte = 0; byte < line.size(); ++character) {
    const text::DecodedChar decoded = text::DecodeAt(line, byte);
    byte += std::max<std::size_t>(decoded.length, 1);
    const char32_t shown = ShownCode(decoded.code);
    if (shown >= 0x10000) {
      const char32_t value = shown - 0x10000;
      units.push_back(static_cast<wchar_t>(0xD800 + (value >> 10)));
      units.push_back(static_cast<wchar_t>(0xDC00 + (value & 0x3FF)));
      characters.push_back(character);
    } else {
      units.push_back(static_cast<wchar_t>(shown));
    }
    characters.push_back(character);
  }
}

}  // namespace tessaly::win32
