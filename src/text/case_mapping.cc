#include "text/case_mapping.h"

#include <algorithm>
#include <iterator>

#include "text/utf8.h"

namespace tessaly::text {

namespace {

struct CasePair {
  char32_t from;
  char32_t to;
};

#include "text/case_tables.inc"

template <std::size_t N>
char32_t Lookup(const CasePair (&table)[N], char32_t code) {
  const auto* found = std::lower_bound(
      std::begin(table), std::end(table), code,
      [](const CasePair& pair, char32_t value) { return pair.from < value; });
  return (found != std::end(table) && found->from == code) ? found->to : code;
}

template <typename MapChar>
std::string MapText(std::string_view text, MapChar map) {
  // An ASCII start maps byte by byte in place; decoding starts at the first
  // other byte.
  std::string out(text);
  std::size_t pos = 0;
  for (; pos < out.size() && static_cast<unsigned char>(out[pos]) < 0x80; ++pos) {
    out[pos] = static_cast<char>(map(static_cast<unsigned char>(out[pos])));
  }
  if (pos == out.size()) return out;
  out.resize(pos);
  for (; pos < text.size();) {
    const auto byte = static_cast<unsigned char>(text[pos]);
    if (byte < 0x80) {
      out.push_back(static_cast<char>(map(byte)));
      ++pos;
      continue;
    }
    const DecodedChar c = DecodeAt(text, pos);
    AppendChar(out, map(c.code));
    pos += c.length;
  }
  return out;
}

}  // namespace

char32_t UpperChar(char32_t code) {
  if (code < 0x80) return (code >= 'a' && code <= 'z') ? code - 32 : code;
  return Lookup(kUpperPairs, code);
}

char32_t LowerChar(char32_t code) {
  if (code < 0x80) return (code >= 'A' && code <= 'Z') ? code + 32 : code;
  return Lookup(kLowerPairs, code);
}

char32_t FoldChar(char32_t code) { return LowerChar(UpperChar(code)); }

std::string UpperCase(std::string_view text) { return MapText(text, UpperChar); }

std::string LowerCase(std::string_view text) { return MapText(text, LowerChar); }

std::string CapitalizeFirst(std::string_view text, RestOfWord rest) {
  if (text.empty()) return {};
  const DecodedChar first = DecodeAt(text, 0);
  std::string out;
  out.reserve(text.size());
  AppendChar(out, UpperChar(first.code));
  const std::string_view tail = text.substr(first.length);
  out += rest == RestOfWord::kLower ? LowerCase(tail) : std::string(tail);
  return out;
}

}  // namespace tessaly::text
