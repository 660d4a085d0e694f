#include "conversion/numbered_replace.h"

#include <bitset>
#include <vector>

#include "text/text_ops.h"

namespace tessaly {

namespace {

// Both rules are a fixed row of replace-alls, each looking for a pattern
// with a number in it. Most patterns are absent from a name, and an absent
// one changes nothing, so instead of running every step the row scans the
// text once for the steps whose patterns occur, runs the first of them, and
// scans again only after the text has changed. The result is the same as
// running every step in order.
template <std::size_t N, typename Steps>
void RunNumberedSteps(std::string& text, const Steps& steps, std::string_view replacement) {
  for (std::size_t next = 0; next < N;) {
    std::bitset<N> present;
    steps.MarkPresent(text, present);
    std::size_t step = next;
    while (step < N && !present[step]) ++step;
    if (step == N) return;
    text::ReplaceAllIn(text, steps.Pattern(step), replacement);
    next = step + 1;
  }
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int ValueOf(std::string_view digits) {
  int value = 0;
  for (char c : digits) value = value * 10 + (c - '0');
  return value;
}

// Steps 2j and 2j+1 look for j zero-filled to two digits and for j plain.
class HashSteps {
 public:
  static constexpr std::size_t kCount = 202;

  explicit HashSteps(std::string_view find) : literals_(text::Split(find, "#")) {}

  std::string Pattern(std::size_t step) const {
    const int j = static_cast<int>(step / 2);
    std::string digits = std::to_string(j);
    if (step % 2 == 0 && j < 10) digits.insert(0, 1, '0');
    return WithNumber(digits);
  }

  void MarkPresent(std::string_view text, std::bitset<kCount>& present) const {
    const std::string_view first = literals_.front();
    if (first.empty()) {
      for (std::size_t pos = 0; pos < text.size(); ++pos) MarkAt(text, pos, pos, present);
      return;
    }
    for (std::size_t at = text.find(first); at != std::string_view::npos;
         at = text.find(first, at + 1)) {
      MarkAt(text, at, at + first.size(), present);
    }
  }

 private:
  std::string WithNumber(std::string_view digits) const {
    std::string pattern(literals_.front());
    for (std::size_t i = 1; i < literals_.size(); ++i) {
      pattern.append(digits).append(literals_[i]);
    }
    return pattern;
  }

  // Tries every run of one to three digits at `digitsAt` as the number of a
  // match that starts at `start`.
  void MarkAt(std::string_view text, std::size_t start, std::size_t digitsAt,
              std::bitset<kCount>& present) const {
    for (std::size_t length = 1; length <= 3 && digitsAt + length <= text.size(); ++length) {
      if (!IsDigit(text[digitsAt + length - 1])) return;
      const std::string_view digits = text.substr(digitsAt, length);
      const int first = FirstStepFor(digits);
      if (first < 0 || !MatchesAt(text, start, digits)) continue;
      present[static_cast<std::size_t>(first)] = true;
      if (digits.size() >= 2 && digits[0] != '0') present[static_cast<std::size_t>(first) + 1] = true;
    }
  }

  // The first step whose number is written `digits`; -1 for none. From 10
  // on both forms are the same text, so the next step matches too.
  static int FirstStepFor(std::string_view digits) {
    const int value = ValueOf(digits);
    if (digits.size() == 1) return 2 * value + 1;
    if (digits.size() == 2) return 2 * value;
    return digits == "100" ? 200 : -1;
  }

  bool MatchesAt(std::string_view text, std::size_t start, std::string_view digits) const {
    std::size_t pos = start;
    for (std::size_t i = 0; i < literals_.size(); ++i) {
      if (i > 0) {
        if (text.substr(pos, digits.size()) != digits) return false;
        pos += digits.size();
      }
      if (text.substr(pos, literals_[i].size()) != literals_[i]) return false;
      pos += literals_[i].size();
    }
    return true;
  }

  std::vector<std::string_view> literals_;
};

// Step 3i+b looks for i between the bracket pair b.
class BracketSteps {
 public:
  static constexpr std::size_t kCount = 303;
  static constexpr char kOpen[] = {'(', '[', '{'};
  static constexpr char kClose[] = {')', ']', '}'};

  std::string Pattern(std::size_t step) const {
    const std::size_t pair = step % 3;
    return kOpen[pair] + std::to_string(step / 3) + kClose[pair];
  }

  void MarkPresent(std::string_view text, std::bitset<kCount>& present) const {
    for (std::size_t pos = 0; pos < text.size(); ++pos) {
      for (std::size_t pair = 0; pair < 3; ++pair) {
        if (text[pos] == kOpen[pair]) MarkAt(text, pos + 1, pair, present);
      }
    }
  }

 private:
  static void MarkAt(std::string_view text, std::size_t digitsAt, std::size_t pair,
                     std::bitset<kCount>& present) {
    for (std::size_t length = 1; length <= 3 && digitsAt + length < text.size(); ++length) {
      if (!IsDigit(text[digitsAt + length - 1])) return;
      if (text[digitsAt + length] != kClose[pair]) continue;
      const std::string_view digits = text.substr(digitsAt, length);
      const int value = ValueOf(digits);
      const bool plain = length == 1 || digits[0] != '0';  // no leading zeros
      if (plain && value <= 100) present[static_cast<std::size_t>(value) * 3 + pair] = true;
    }
  }
};

}  // namespace

void ApplyListEntry(std::string& text, std::string_view find, std::string_view replacement) {
  if (find.find('#') == std::string_view::npos) {
    text::ReplaceAllIn(text, find, replacement);
    return;
  }
  RunNumberedSteps<HashSteps::kCount>(text, HashSteps(find), replacement);
}

void RemoveBracketNumbers(std::string& text) {
  RunNumberedSteps<BracketSteps::kCount>(text, BracketSteps(), "");
}

}  // namespace tessaly
