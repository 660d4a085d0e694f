#include "text/text_ops.h"

#include <optional>

#include "text/case_mapping.h"
#include "text/utf8.h"

namespace tessaly::text {

namespace {

// ASCII folds by itself; only other characters need the tables.
char32_t AsciiFold(unsigned char byte) { return (byte >= 'A' && byte <= 'Z') ? byte + 32 : byte; }

// The folded character at `pos` and the bytes it takes.
DecodedChar FoldedAt(std::string_view text, std::size_t pos) {
  const auto byte = static_cast<unsigned char>(text[pos]);
  if (byte < 0x80) return {AsciiFold(byte), 1};
  const DecodedChar c = DecodeAt(text, pos);
  return {FoldChar(c.code), c.length};
}

// Length in bytes of the match of `folded` at `pos`, if there is one.
std::optional<std::size_t> MatchFoldedAt(std::string_view text, std::size_t pos,
                                         const std::u32string& folded) {
  std::size_t at = pos;
  for (char32_t wanted : folded) {
    if (at >= text.size()) return std::nullopt;
    const DecodedChar c = FoldedAt(text, at);
    if (c.code != wanted) return std::nullopt;
    at += c.length;
  }
  return at - pos;
}

// Finds `find` as whole characters, never as part of a letter.
class WholeFinder {
 public:
  // A match can only cut a letter when `find` begins with a continuation
  // byte or ends in a byte that is no ASCII; most texts do neither, and
  // then every byte match is a character match.
  explicit WholeFinder(std::string_view find)
      : find_(find),
        mayCutLetter_(!find.empty() && (IsContinuationByte(find.front()) ||
                                        static_cast<unsigned char>(find.back()) >= 0x80)) {}

  // The first match at or behind `from`, or npos. Forced inline: called
  // once per match, as a call it cost the conversion a few percent.
  [[gnu::always_inline]] std::size_t Next(std::string_view text, std::size_t from) const {
    const std::size_t hit = text.find(find_, from);
    return mayCutLetter_ && hit != std::string_view::npos ? WholeFrom(text, hit) : hit;
  }

 private:
  std::size_t WholeFrom(std::string_view text, std::size_t hit) const {
    while (hit != std::string_view::npos &&
           !(IsCharBoundary(text, hit) && IsCharBoundary(text, hit + find_.size()))) {
      hit = text.find(find_, hit + 1);
    }
    return hit;
  }

  std::string_view find_;
  bool mayCutLetter_;
};

}  // namespace

std::u32string Fold(std::string_view text) {
  std::u32string folded;
  for (std::size_t pos = 0; pos < text.size();) {
    const DecodedChar c = FoldedAt(text, pos);
    folded.push_back(c.code);
    pos += c.length;
  }
  return folded;
}

bool ReplaceAllIn(std::string& text, std::string_view find, std::string_view replacement) {
  if (find.empty()) return false;
  const WholeFinder finder(find);
  std::size_t hit = finder.Next(text, 0);
  if (hit == std::string::npos) return false;
  std::string out;
  out.reserve(text.size());
  std::size_t from = 0;
  do {
    out.append(text, from, hit - from);
    out.append(replacement);
    from = hit + find.size();
    hit = finder.Next(text, from);
  } while (hit != std::string::npos);
  out.append(text, from);
  text = std::move(out);
  return true;
}

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement) {
  std::string out(text);
  ReplaceAllIn(out, find, replacement);
  return out;
}

bool ReplaceAllIgnoreCaseIn(std::string& text, std::string_view find,
                            std::string_view replacement, std::string_view unlessFollowedBy) {
  if (find.empty()) return false;
  const std::u32string folded = Fold(find);
  const std::u32string foldedGuard = Fold(unlessFollowedBy);
  const auto matchAt = [&](std::size_t pos) -> std::optional<std::size_t> {
    const auto length = MatchFoldedAt(text, pos, folded);
    if (length && !foldedGuard.empty() && MatchFoldedAt(text, pos + *length, foldedGuard)) {
      return std::nullopt;
    }
    return length;
  };
  // An ASCII byte can only start a match if it folds to the first character
  // wanted; checking that first skips most positions at the cost of a byte.
  const auto cannotStartMatch = [&](unsigned char byte) {
    return byte < 0x80 && AsciiFold(byte) != folded.front();
  };
  std::string out;
  bool found = false;
  std::size_t copied = 0;
  for (std::size_t pos = 0; pos < text.size();) {
    if (cannotStartMatch(static_cast<unsigned char>(text[pos]))) {
      ++pos;
    } else if (const auto length = matchAt(pos)) {
      if (!found) out.reserve(text.size());
      found = true;
      out.append(text, copied, pos - copied);
      out.append(replacement);
      pos += *length;
      copied = pos;
    } else {
      pos += DecodeAt(text, pos).length;
    }
  }
  if (!found) return false;
  out.append(text, copied);
  text = std::move(out);
  return true;
}

std::string ReplaceAllIgnoreCase(std::string_view text, std::string_view find,
                                 std::string_view replacement) {
  std::string out(text);
  ReplaceAllIgnoreCaseIn(out, find, replacement);
  return out;
}

int CompareIgnoreCase(std::string_view a, std::string_view b) {
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    const DecodedChar x = FoldedAt(a, i);
    const DecodedChar y = FoldedAt(b, j);
    if (x.code != y.code) return x.code < y.code ? -1 : 1;
    i += x.length;
    j += y.length;
  }
  if (i < a.size()) return 1;
  return j < b.size() ? -1 : 0;
}

std::size_t HashIgnoringCase(std::string_view text) {
  std::uint64_t hash = 14695981039346656037ull;  // FNV-1a over the folded characters
  for (std::size_t pos = 0; pos < text.size();) {
    const auto byte = static_cast<unsigned char>(text[pos]);
    if (byte < 0x80) {  // paths are mostly ASCII: no decoding, no branch
      const unsigned upper = static_cast<unsigned>(byte - 'A') < 26u;
      hash = (hash ^ (byte | (upper << 5))) * 1099511628211ull;
      ++pos;
      continue;
    }
    const DecodedChar c = FoldedAt(text, pos);
    hash = (hash ^ c.code) * 1099511628211ull;
    pos += c.length;
  }
  return static_cast<std::size_t>(hash);
}

std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  if (text.empty()) return pieces;
  if (separator.empty()) {
    pieces.push_back(text);
    return pieces;
  }
  const WholeFinder finder(separator);
  std::size_t from = 0;
  for (std::size_t hit; (hit = finder.Next(text, from)) != std::string_view::npos;) {
    pieces.push_back(text.substr(from, hit - from));
    from = hit + separator.size();
  }
  pieces.push_back(text.substr(from));
  return pieces;
}

std::string Join(const std::vector<std::string>& pieces, std::string_view separator) {
  std::string out;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) out.append(separator);
    out.append(pieces[i]);
  }
  return out;
}

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const std::size_t last = text.find_last_not_of(' ');
  return text.substr(first, last - first + 1);
}

}  // namespace tessaly::text
