#ifndef TESSALY_TEXT_TEXT_OPS_H_
#define TESSALY_TEXT_TEXT_OPS_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessaly::text {

// Replaces every occurrence of `find` in `text` by `replacement`, scanning
// left to right and going on behind each match, so inserted text is never
// scanned again and matches never overlap. An empty `find` changes nothing.
// Returns whether anything was found.
bool ReplaceAllIn(std::string& text, std::string_view find, std::string_view replacement);
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);

// The same, with `find` matched ignoring letter case, character by character.
// A match directly followed by `unlessFollowedBy` (also ignoring case, when
// not empty) is passed over.
bool ReplaceAllIgnoreCaseIn(std::string& text, std::string_view find,
                            std::string_view replacement,
                            std::string_view unlessFollowedBy = {});
std::string ReplaceAllIgnoreCase(std::string_view text, std::string_view find,
                                 std::string_view replacement);

// The pieces between the separators, empty pieces included. An empty text
// has no pieces; an empty separator gives the whole text as one piece. The
// pieces point into `text`.
std::vector<std::string_view> Split(std::string_view text, std::string_view separator);

// The pieces joined with `separator` between them.
std::string Join(const std::vector<std::string>& pieces, std::string_view separator);

// `text` without blanks (character 32) at either end; other white space stays.
std::string_view TrimBlanks(std::string_view text);

// Orders two texts character by character ignoring letter case: below 0,
// 0 or above 0 as `a` comes before, with or after `b`.
int CompareIgnoreCase(std::string_view a, std::string_view b);

// A hash of `text` that texts equal ignoring case share.
std::size_t HashIgnoringCase(std::string_view text);

// The characters of `text` with letter case folded: two texts have the same
// folded form exactly when CompareIgnoreCase calls them equal.
std::u32string Fold(std::string_view text);

// Whether `text` starts with `prefix`, exact case.
inline bool StartsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

}  // namespace tessaly::text

#endif  // TESSALY_TEXT_TEXT_OPS_H_
