#include "json_lines.h"

#include <cstdio>

#include "text/utf8.h"

namespace tessaly::cli {

namespace {

void AppendUnicodeEscape(std::string& out, unsigned value) {
  char escape[8];
  std::snprintf(escape, sizeof escape, "\\u%04x", value);
  out += escape;
}

}  // namespace

std::string JsonString(std::string_view text) {
  std::string out = "\"";
  for (std::size_t pos = 0; pos < text.size();) {
    const text::DecodedChar c = text::DecodeAt(text, pos);
    if (c.code == '"' || c.code == '\\') {
      out += '\\';
      out += static_cast<char>(c.code);
    } else if (c.code == '\n') {
      out += "\\n";
    } else if (c.code < 0x20) {
      AppendUnicodeEscape(out, static_cast<unsigned>(c.code));
    } else if (c.code >= text::kInvalidByteBase) {
      AppendUnicodeEscape(out, 0xdc00 + static_cast<unsigned>(c.code - text::kInvalidByteBase));
    } else {
      out.append(text.substr(pos, c.length));
    }
    pos += c.length;
  }
  return out + '"';
}

void WriteJsonLine(std::ostream& out, std::string_view oldPath, std::string_view newPath,
                   std::string_view outcome, std::string_view code) {
  out << "{\"old\":" << JsonString(oldPath) << ",\"new\":" << JsonString(newPath)
      << ",\"outcome\":" << JsonString(outcome) << ",\"code\":" << JsonString(code) << "}\n";
}

}  // namespace tessaly::cli
