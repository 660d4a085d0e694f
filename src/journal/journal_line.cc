#include "journal/journal_line.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "text/utf8.h"

namespace tessaly::journal {

namespace {

constexpr char kHex[] = "0123456789abcdef";

// FNV-1a: enough to tell a line that was cut short or spoilt.
std::uint32_t Check(std::string_view text) {
  std::uint32_t hash = 2166136261u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
  return hash;
}

void AppendByteEscapes(std::string_view bytes, std::string& out) {
  for (const char c : bytes) {
    const auto b = static_cast<unsigned char>(c);
    const char escape[3] = {'%', kHex[b >> 4], kHex[b & 15]};
    out.append(escape, 3);
  }
}

// The bytes a field holds as they are; a table, as every record of a run
// goes through here byte by byte.
constexpr std::array<bool, 256> kPlain = [] {
  std::array<bool, 256> plain{};
  for (int byte = 0x21; byte < 0x7f; ++byte) plain[byte] = byte != '%';
  return plain;
}();

bool IsPlain(unsigned char byte) { return kPlain[byte]; }

void AppendEscaped(std::string_view field, std::string& out) {
  // Plain bytes go out a run at a time; a record is written for every file.
  std::size_t plain = 0;
  for (std::size_t pos = 0; pos < field.size();) {
    while (pos < field.size() && IsPlain(static_cast<unsigned char>(field[pos]))) ++pos;
    if (pos == field.size()) break;
    const auto byte = static_cast<unsigned char>(field[pos]);
    std::size_t length = 1;
    if (byte >= 0x80) {
      // Whole characters stay readable; C1 controls and stray bytes do not.
      const text::DecodedChar c = text::DecodeAt(field, pos);
      length = c.length;
      if (c.code >= 0xa0 && c.code < text::kInvalidByteBase) {
        pos += length;
        continue;
      }
    }
    out.append(field.substr(plain, pos - plain));
    AppendByteEscapes(field.substr(pos, length), out);
    pos += length;
    plain = pos;
  }
  out.append(field.substr(plain));
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// False for a field with a "%" not followed by two hex digits.
bool Unescape(std::string_view field, std::string& out) {
  for (std::size_t pos = 0; pos < field.size(); ++pos) {
    if (field[pos] != '%') {
      out += field[pos];
      continue;
    }
    if (pos + 2 >= field.size()) return false;
    const int high = HexDigit(field[pos + 1]);
    const int low = HexDigit(field[pos + 2]);
    if (high < 0 || low < 0) return false;
    out += static_cast<char>(high * 16 + low);
    pos += 2;
  }
  return true;
}

// The fields of one line (without its line end), or nothing if its check fails.
bool ReadLine(std::string_view line, std::vector<std::string>& fields) {
  const std::size_t mark = line.rfind(" #");
  if (mark == std::string_view::npos || line.size() != mark + 10) return false;
  std::uint32_t check = 0;
  const char* end = line.data() + line.size();
  const auto read = std::from_chars(line.data() + mark + 2, end, check, 16);
  if (read.ec != std::errc() || read.ptr != end || check != Check(line.substr(0, mark))) {
    return false;
  }
  for (std::string_view rest = line.substr(0, mark);;) {
    const std::size_t blank = rest.find(' ');
    if (!Unescape(rest.substr(0, blank), fields.emplace_back())) return false;
    if (blank == std::string_view::npos) return true;
    rest.remove_prefix(blank + 1);
  }
}

}  // namespace

std::string Line(std::initializer_list<std::string_view> fields) {
  std::string line;
  AppendLine(line, fields);
  return line;
}

void AppendLine(std::string& out, std::initializer_list<std::string_view> fields) {
  const std::size_t start = out.size();
  bool first = true;
  for (const std::string_view field : fields) {
    if (!std::exchange(first, false)) out += ' ';
    AppendEscaped(field, out);
  }
  const std::uint32_t check = Check(std::string_view(out).substr(start));
  out += " #";
  for (int shift = 28; shift >= 0; shift -= 4) out += kHex[(check >> shift) & 15];
  out += '\n';
}

std::vector<std::vector<std::string>> ReadLines(std::string_view text) {
  std::vector<std::vector<std::string>> lines;
  for (std::size_t start = 0, end; (end = text.find('\n', start)) != std::string_view::npos;
       start = end + 1) {
    std::vector<std::string> fields;
    if (ReadLine(text.substr(start, end - start), fields)) lines.push_back(std::move(fields));
  }
  return lines;
}

}  // namespace tessaly::journal
