#include "text/visible_text.h"

#include <cstdio>

#include "text/utf8.h"

namespace tessaly::text {

namespace {

// The marks that turn the direction of writing, and the two separators
// that break a line without being a control character.
bool ActsAsLayout(char32_t code) {
  return code == 0x061c || code == 0x200e || code == 0x200f || (code >= 0x2028 && code <= 0x202e) ||
         (code >= 0x2066 && code <= 0x2069);
}

void AppendHex(std::string& out, const char* format, unsigned value) {
  char escape[16];
  std::snprintf(escape, sizeof escape, format, value);
  out += escape;
}

// The escape for `code`, or nothing when it shows as itself.
bool AppendEscape(std::string& out, char32_t code) {
  switch (code) {
    case '\n':
      out += "\\n";
      return true;
    case '\r':
      out += "\\r";
      return true;
    case '\t':
      out += "\\t";
      return true;
    default:
      break;
  }
  if (code < 0x20 || code == 0x7f) {
    AppendHex(out, "\\x%02x", static_cast<unsigned>(code));
  } else if (code >= kInvalidByteBase) {
    AppendHex(out, "\\x%02x", static_cast<unsigned>(code - kInvalidByteBase));
  } else if ((code >= 0x80 && code <= 0x9f) || ActsAsLayout(code)) {
    AppendHex(out, "\\u%04x", static_cast<unsigned>(code));
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::optional<char32_t> ControlPicture(char32_t code) {
  if (code < 0x20) return 0x2400 + code;
  if (code == 0x7f) return 0x2421;
  if ((code >= 0x80 && code <= 0x9f) || ActsAsLayout(code)) return 0xfffd;
  return std::nullopt;
}

std::string Pictured(std::string_view text, Layout layout) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t pos = 0; pos < text.size();) {
    if (layout == Layout::kLineEnds && text.substr(pos).starts_with("\r\n")) {
      out += "\r\n";
      pos += 2;
      continue;
    }
    const DecodedChar c = DecodeAt(text, pos);
    const std::optional<char32_t> picture = ControlPicture(c.code);
    if (picture) {
      AppendChar(out, *picture);
    } else {
      out.append(text.substr(pos, c.length));
    }
    pos += c.length;
  }
  return out;
}

std::string Visible(std::string_view text, Layout layout) {
  std::string out;
  out.reserve(text.size());
  AppendVisible(text, layout, out);
  return out;
}

void AppendVisible(std::string_view text, Layout layout, std::string& out) {
  // Printable ASCII shows as itself: a run of it goes across at once.
  const char doubled = layout == Layout::kNone ? '\\' : '\0';
  const auto plain = [doubled](char c) {
    return static_cast<unsigned char>(c - 0x20) < 0x5f && c != doubled;
  };
  for (std::size_t pos = 0; pos < text.size();) {
    std::size_t run = pos;
    while (run < text.size() && plain(text[run])) ++run;
    out.append(text.substr(pos, run - pos));
    pos = run;
    if (pos == text.size()) break;
    if (layout == Layout::kLineEnds && text.substr(pos).starts_with("\r\n")) {
      out += "\r\n";
      pos += 2;
      continue;
    }
    const DecodedChar c = DecodeAt(text, pos);
    if (layout == Layout::kNone && c.code == '\\') {
      out += "\\\\";
    } else if (!AppendEscape(out, c.code)) {
      out.append(text.substr(pos, c.length));
    }
    pos += c.length;
  }
}

}  // namespace tessaly::text
