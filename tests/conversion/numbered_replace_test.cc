#include "conversion/numbered_replace.h"

#include <gtest/gtest.h>

#include <random>

#include "text/text_ops.h"

namespace tessaly {
namespace {

// The rules written the slow, obvious way: every step runs.
void NaiveListEntry(std::string& text, std::string_view find, std::string_view replacement) {
  if (find.find('#') == std::string_view::npos) {
    text::ReplaceAllIn(text, find, replacement);
    return;
  }
  for (int j = 0; j <= 100; ++j) {
    const std::string plain = std::to_string(j);
    const std::string padded = j < 10 ? "0" + plain : plain;
    text::ReplaceAllIn(text, text::ReplaceAll(find, "#", padded), replacement);
    text::ReplaceAllIn(text, text::ReplaceAll(find, "#", plain), replacement);
  }
}

void NaiveBracketNumbers(std::string& text) {
  for (int i = 0; i <= 100; ++i) {
    const std::string n = std::to_string(i);
    text::ReplaceAllIn(text, "(" + n + ")", "");
    text::ReplaceAllIn(text, "[" + n + "]", "");
    text::ReplaceAllIn(text, "{" + n + "}", "");
  }
}

std::string Applied(std::string text, std::string_view find, std::string_view replacement) {
  ApplyListEntry(text, find, replacement);
  return text;
}

TEST(ApplyListEntry, HashStandsForTheWholeNumber) {
  const struct {
    std::string text, find, replacement, expected;
  } cases[] = {
      {"Copy (0707) Of x", "Copy (##) Of", "", " x"},
      {"Copy (77) Of x", "Copy (##) Of", "", " x"},
      {"Copy (7) Of x", "Copy (##) Of", "", "Copy (7) Of x"},
      {"Copy (07) Of x", "Copy (##) Of", "", "Copy (07) Of x"},
      {"Copy (1212) Of x", "Copy (##) Of", "", " x"},
      {"song-7.mp3", "-#", "", "song.mp3"},
      // Numbers run upwards, so "-0" (j = 0) takes the front of "-07" and
      // "-1" the front of "-100" before their own numbers come.
      {"song-07-7.mp3", "-#", "", "song7.mp3"},
      {"a-100b-101", "-#", "+", "a+00b+01"},
      {"Track 3", "Track #", "T#", "T#"},  // a "#" in the replacement is plain
      {"Copy Of a", "Copy Of", "", " a"},
      {"Copy of a", "Copy Of", "", "Copy of a"},  // exact case
      {"x", "", "y", "x"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Applied(c.text, c.find, c.replacement), c.expected) << c.text << " / " << c.find;
  }
}

TEST(RemoveBracketNumbers, OnePassInAscendingOrder) {
  const std::pair<std::string, std::string> cases[] = {
      {"myfile_(1).tmd", "myfile_.tmd"},
      {"a(0)[100]{55}b", "ab"},
      {"a(01)(101)(x)b", "a(01)(101)(x)b"},  // leading zeros and 101 stay
      {"((5)6)", ""},   // removing 5 brings 6 together, still to come
      {"((6)5)", "(5)"},  // 5 had gone by when 6 brought it together
      {"((5)5)", "(5)"},  // a replace-all never rescans its own result
      {"[(3]", "[(3]"},
      {"", ""},
  };
  for (const auto& [text, expected] : cases) {
    std::string out = text;
    RemoveBracketNumbers(out);
    EXPECT_EQ(out, expected) << text;
  }
}

// The fast rules must agree with the naive ones on any text, including
// texts where one replacement creates or destroys a later match.
TEST(NumberedReplace, AgreesWithRunningEveryStep) {
  std::mt19937 random(12);
  const std::string alphabet = "0123456789#(){}[]-xX ";
  const auto randomText = [&](std::size_t maxLength) {
    std::string s(random() % (maxLength + 1), ' ');
    for (char& c : s) c = alphabet[random() % alphabet.size()];
    return s;
  };
  for (int round = 0; round < 20000; ++round) {
    const std::string text = randomText(24);
    std::string find = randomText(5);
    std::erase(find, '#');
    find.insert(random() % (find.size() + 1), "#");
    if (random() % 3 == 0) find.insert(random() % (find.size() + 1), "#");
    const std::string replacement = randomText(3);

    std::string fast = text, naive = text;
    ApplyListEntry(fast, find, replacement);
    NaiveListEntry(naive, find, replacement);
    ASSERT_EQ(fast, naive) << "text '" << text << "' find '" << find << "' with '"
                           << replacement << "'";

    std::string fastBrackets = text, naiveBrackets = text;
    RemoveBracketNumbers(fastBrackets);
    NaiveBracketNumbers(naiveBrackets);
    ASSERT_EQ(fastBrackets, naiveBrackets) << "text '" << text << "'";
  }
}

}  // namespace
}  // namespace tessaly
