// Text operations on UTF-8 with stray bytes: letter case, replacing, escaping.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "text/case_mapping.h"
#include "text/text_ops.h"
#include "text/utf8.h"
#include "text/visible_text.h"
#include "text/whole_number.h"

namespace tessaly::text {
namespace {

using ::testing::ElementsAre;

TEST(CaseMapping, MapsLettersBeyondAsciiAndLeavesStrayBytes) {
  EXPECT_EQ(UpperCase("Ünïcode Ça.JPG"), "ÜNÏCODE ÇA.JPG");
  EXPECT_EQ(LowerCase("ÀÉÎÕÜ"), "àéîõü");
  EXPECT_EQ(UpperCase("ελληνικά кириллица"), "ΕΛΛΗΝΙΚΆ КИРИЛЛИЦА");
  EXPECT_EQ(UpperCase("straße"), "STRAßE");  // one-to-many mappings keep the letter
  // A byte that never starts a character, sequences cut short at the end
  // or in the middle, an overlong form, a surrogate.
  for (const std::string raw : {"ab\xff" "cd", "ab\xc3", "\xc0\xaf" "x", "\xed\xa0\x80" "y", "\xe2\x82" "z"}) {
    std::string upper = raw, lower = raw;
    for (char& c : upper) if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    for (char& c : lower) if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    EXPECT_EQ(UpperCase(raw), upper);
    EXPECT_EQ(LowerCase(raw), lower);
  }
  EXPECT_EQ(CapitalizeFirst("élan VITAL", RestOfWord::kLower), "Élan vital");
  EXPECT_EQ(CapitalizeFirst("élan VITAL", RestOfWord::kUnchanged), "Élan VITAL");
  EXPECT_EQ(CapitalizeFirst("\xff" "ABC", RestOfWord::kLower), "\xff" "abc");
}

TEST(Utf8, CountsCharactersAndEveryByteSequenceSurvivesDecodeAndEncode) {
  EXPECT_EQ(CharCount("a€𝄞"), 3u);
  EXPECT_EQ(CharCount("\xff\xfe" "a"), 3u);  // each stray byte is one character
  std::string all;
  for (int i = 0; i < 256; ++i) all.push_back(static_cast<char>(i));
  all += "Ünï€𝄞\xf4\x90\x80\x80";  // the last is past Unicode
  std::string rebuilt;
  for (std::size_t pos = 0; pos < all.size();) {
    const DecodedChar c = DecodeAt(all, pos);
    AppendChar(rebuilt, c.code);
    pos += c.length;
  }
  EXPECT_EQ(rebuilt, all);
}

// Matches are scanned left to right and never rescanned, exactly or
// ignoring case character by character.
TEST(ReplaceAll, ScansLeftToRightWithoutRescanningExactOrIgnoringCase) {
  const struct {
    std::string text, find, replacement, expected;
    bool ignoreCase = false;
  } cases[] = {
      {"aaa", "aa", "b", "ba"},            // matches never overlap
      {"abab", "ab", "abab", "abababab"},  // inserted text is not scanned again
      {"name", "", "x", "name"},           // empty find changes nothing
      {"Copy of", "Copy Of", "", "Copy of"},  // exact case
      {"Ünï Ünï", "Ünï", "U", "U U"},
      // A stray byte is a character of its own and never half of a letter.
      {"\xc3" "x é", "\xc3", "-", "-x é"},
      {"éx", "\xa9x", "-", "éx"},
      {"e\xcc\x81", "e\xcc", "-", "e\xcc\x81"},
      {"a.JPG.jpg.JpG", "jpg", "jpeg", "a.jpeg.jpeg.jpeg", true},
      {"ÄRGER ärger", "äR", "x", "xGER xger", true},
      {"Straße", "SS", "x", "Straße", true},  // no one-to-many folding
      {"\xc3" "A", "\xc3" "a", "ok", "ok", true},  // a stray byte matches only itself
      {"xyz", "", "q", "xyz", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ((c.ignoreCase ? ReplaceAllIgnoreCase : ReplaceAll)(c.text, c.find, c.replacement), c.expected)
        << c.text;
  }
  std::string text = "abc";
  EXPECT_FALSE(ReplaceAllIn(text, "x", "y"));
  EXPECT_TRUE(ReplaceAllIn(text, "b", "b"));
  text = "a.tif b.TIFF c.Tif";  // passes over matches followed by the guard
  ReplaceAllIgnoreCaseIn(text, "tif", "tiff", "f");
  EXPECT_EQ(text, "a.tiff b.TIFF c.tiff");
}

TEST(TextOps, SplitTrimAndWholeNumbers) {
  EXPECT_THAT(Split("", "-"), ::testing::IsEmpty());
  EXPECT_THAT(Split("a-b", ""), ElementsAre("a-b"));
  EXPECT_THAT(Split("a--b-", "-"), ElementsAre("a", "", "b", ""));
  EXPECT_THAT(Split("aéb\xa9" "c", "\xa9"), ElementsAre("aéb", "c"));
  EXPECT_EQ(TrimBlanks("  a b  "), "a b");
  EXPECT_EQ(TrimBlanks("\ta \t"), "\ta \t");
  const std::pair<const char*, std::optional<int>> numbers[] = {
      {" -3 ", -3}, {"+4", 4}, {"3.5", 4}, {"32767", 32767},
      {"32768", std::nullopt}, {"", std::nullopt}, {"1x", std::nullopt}, {"nan", std::nullopt}};
  for (const auto& [text, value] : numbers) {
    const auto parsed = ParseInteger16(text);
    EXPECT_EQ(parsed ? std::optional<int>(*parsed) : std::nullopt, value) << text;
  }
}

TEST(Visible, EscapesWhatWouldActInsteadOfShowing) {
  const std::tuple<std::string, Layout, std::string> cases[] = {
      {"Evil\x1b[2J\x1b[HX.TXT", Layout::kNone, R"(Evil\x1b[2J\x1b[HX.TXT)"},
      {"a\r\nb\nc\td\x7f", Layout::kNone, R"(a\r\nb\nc\td\x7f)"},
      {"a\r\nb\nc\r", Layout::kLineEnds, "a\r\nb\\nc\\r"},
      {R"(odd\name)", Layout::kNone, R"(odd\\name)"},
      {R"(odd\name)", Layout::kLineEnds, R"(odd\name)"},
      // Marks that reorder or break text are escaped; a narrow blank (U+202F) is not.
      {"Ünï \xc2\x9b \xe2\x80\xae\xe2\x81\xa9\xd8\x9c\xe2\x80\x8f\xe2\x80\xaf txt \xff", Layout::kNone,
       "Ünï \\u009b \\u202e\\u2069\\u061c\\u200f\xe2\x80\xaf txt \\xff"},
  };
  for (const auto& [text, layout, expected] : cases) EXPECT_EQ(Visible(text, layout), expected) << expected;
}

}  // namespace
}  // namespace tessaly::text
