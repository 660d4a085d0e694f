#include "platform/search_pattern.h"

#include "text/case_mapping.h"
#include "text/utf8.h"

namespace tessaly::search_pattern {

namespace {

std::u32string Folded(std::string_view text) {
  std::u32string out;
  out.reserve(text.size());
  for (std::size_t pos = 0; pos < text.size();) {
    const text::DecodedChar c = text::DecodeAt(text, pos);
    out.push_back(text::FoldChar(c.code));
    pos += c.length;
  }
  return out;
}

// Plain wildcard matching; on a mismatch after a "*", the star takes one
// more character and the match resumes behind it.
bool MatchFolded(std::u32string_view name, std::u32string_view pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t starAt = std::u32string_view::npos;
  std::size_t resumeAt = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == U'*') {
      starAt = p++;
      resumeAt = n;
    } else if (p < pattern.size() && (pattern[p] == U'?' || pattern[p] == name[n])) {
      ++n;
      ++p;
    } else if (starAt != std::u32string_view::npos) {
      p = starAt + 1;
      n = ++resumeAt;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == U'*') ++p;
  return p == pattern.size();
}

}  // namespace

Parts Split(std::string_view pattern) {
  const std::size_t slash = pattern.find_last_of('\\');
  if (slash == std::string_view::npos) return {"", std::string(pattern)};
  std::string folder(pattern.substr(0, slash));
  const bool isRoot = folder.empty() || (folder.size() == 2 && folder[1] == ':');
  if (isRoot) folder.push_back('\\');
  return {folder, std::string(pattern.substr(slash + 1))};
}

bool Matches(std::string_view name, std::string_view pattern) {
  const std::u32string foldedName = Folded(name);
  const std::u32string patternText = Folded(pattern);
  std::u32string_view foldedPattern = patternText;
  if (MatchFolded(foldedName, foldedPattern)) return true;
  if (foldedName.find(U'.') != std::u32string::npos) return false;
  if (foldedPattern.ends_with(U".*")) {
    foldedPattern.remove_suffix(2);
  } else if (foldedPattern.ends_with(U'.')) {
    foldedPattern.remove_suffix(1);
  } else {
    return false;
  }
  return MatchFolded(foldedName, foldedPattern);
}

}  // namespace tessaly::search_pattern
