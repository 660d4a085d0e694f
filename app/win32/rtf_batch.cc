#include "rtf_batch.h"

#include <cstdint>
#include <optional>

#include "text/utf8.h"
#include "text/visible_text.h"

namespace tessaly::win32 {

int RtfBatch::ColourIndex(const Rgb& colour) {
  for (std::size_t i = 0; i < colours_.size(); ++i) {
    if (colours_[i] == colour) return static_cast<int>(i) + 1;
  }
  colours_.push_back(colour);
  return static_cast<int>(colours_.size());
}

void RtfBatch::AddCode(char32_t code) {
  if (code == '\\' || code == '{' || code == '}') {
    body_ += '\\';
    body_ += static_cast<char>(code);
  } else if (code >= 0x20 && code < 0x7F) {
    body_ += static_cast<char>(code);
  } else if (code < 0x10000) {
    body_ += "\\u" + std::to_string(static_cast<std::int16_t>(code)) + "?";
  } else {
    const char32_t value = code - 0x10000;
    const auto high = static_cast<std::int16_t>(0xD800 + (value >> 10));
    const auto low = static_cast<std::int16_t>(0xDC00 + (value & 0x3FF));
    body_ += "\\u" + std::to_string(high) + "?\\u" + std::to_string(low) + "?";
  }
}

std::size_t RtfBatch::Add(std::string_view text, std::size_t from, std::size_t to,
                          std::size_t firstChar, const Rgb* colour) {
  body_ += "\\cf" + std::to_string(colour != nullptr ? ColourIndex(*colour) : 0) + " ";
  std::size_t character = firstChar;
  for (std::size_t i = from; i < to;) {
    const text::DecodedChar decoded = text::DecodeAt(text, i);
    const std::size_t length = decoded.length > 0 ? decoded.length : 1;
    const char32_t code = decoded.code;
    i += length;
    if (code == '\n' && lastWasCr_) {
      positions_.LeaveOut(character++);
      lastWasCr_ = false;
      continue;
    }
    // A CR is a line end when an LF follows, or may still follow.
    lastWasCr_ = code == '\r' && (i >= text.size() || text[i] == '\n');
    if (lastWasCr_) {
      body_ += "\\par\n";
    } else {
      const std::optional<char32_t> picture = text::ControlPicture(code);
      const char32_t shown = picture ? *picture : code;
      if (shown >= 0x10000) positions_.CountTwice(character);
      AddCode(shown);
    }
    ++character;
  }
  return character;
}

std::string RtfBatch::Document() const {
  std::string document = "{\\rtf1\\ansi\\deff0{\\colortbl ;";
  for (const Rgb& colour : colours_) {
    document += "\\red" + std::to_string(colour.red) + "\\green" + std::to_string(colour.green) +
                "\\blue" + std::to_string(colour.blue) + ";";
  }
  document += "}";
  return document + body_ + "}";
}

}  // namespace tessaly::win32
