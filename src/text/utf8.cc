#include "text/utf8.h"

namespace tessaly::text {

namespace {

DecodedChar Invalid(unsigned char byte) { return {kInvalidByteBase + byte, 1}; }

}  // namespace

DecodedChar DecodeAt(std::string_view text, std::size_t pos) {
  const auto lead = static_cast<unsigned char>(text[pos]);
  if (lead < 0x80) return {lead, 1};

  std::size_t length;
  char32_t code;
  char32_t minimum;
  if ((lead & 0xE0) == 0xC0) {
    length = 2, code = lead & 0x1F, minimum = 0x80;
  } else if ((lead & 0xF0) == 0xE0) {
    length = 3, code = lead & 0x0F, minimum = 0x800;
  } else if ((lead & 0xF8) == 0xF0) {
    length = 4, code = lead & 0x07, minimum = 0x10000;
  } else {
    return Invalid(lead);
  }
  if (pos + length > text.size()) return Invalid(lead);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[pos + i]);
    if (!IsContinuationByte(text[pos + i])) return Invalid(lead);
    code = (code << 6) | (byte & 0x3F);
  }
  // Overlong forms, surrogates and values past Unicode would not survive a
  // round trip through AppendChar, so they stay raw bytes.
  if (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
    return Invalid(lead);
  }
  return {code, length};
}

bool IsCharBoundarySlow(std::string_view text, std::size_t pos) {
  if (pos == 0 || pos >= text.size() || !IsContinuationByte(text[pos])) return true;
  // Only a valid sequence can run across `pos`, and it would start at the
  // nearest byte before it that is no continuation byte, at most three back.
  std::size_t lead = pos - 1;
  while (lead > 0 && pos - lead < 3 && IsContinuationByte(text[lead])) --lead;
  const DecodedChar c = DecodeAt(text, lead);
  return c.code >= kInvalidByteBase || lead + c.length <= pos;
}

void AppendUtf8Layout(std::string& out, char32_t code) {
  if (code < 0x80) {
    out.push_back(static_cast<char>(code));
  } else if (code < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (code >> 6)));
    out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
  } else if (code < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (code >> 12)));
    out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (code >> 18)));
    out.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
  }
}

void AppendChar(std::string& out, char32_t code) {
  if (code >= kInvalidByteBase) {
    out.push_back(static_cast<char>(code - kInvalidByteBase));
  } else {
    AppendUtf8Layout(out, code);
  }
}

std::size_t CharCount(std::string_view text) {
  // ASCII, the usual case, is one character a byte.
  std::size_t pos = 0;
  while (pos < text.size() && static_cast<unsigned char>(text[pos]) < 0x80) ++pos;
  std::size_t count = pos;
  for (; pos < text.size(); pos += DecodeAt(text, pos).length) {
    ++count;
  }
  return count;
}

std::size_t ByteAfterChars(std::string_view text, std::size_t byte, std::size_t characters) {
  while (characters > 0 && byte < text.size()) {
    ++byte;
    while (byte < text.size() && IsContinuationByte(text[byte])) ++byte;
    --characters;
  }
  return byte;
}

}  // namespace tessaly::text
