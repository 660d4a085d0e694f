#include "text/text_ops.h"
#include "text/visible_text.h"
#include "text/whole_number.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessaly::text {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ReplaceCase {
  std::string text, find, replacement, expected;
};

TEST(ReplaceAll, ScansLeftToRightWithoutRescanning) {
  const ReplaceCase cases[] = {
      {"aaa", "aa", "b", "ba"},            // matches never overlap
      {"abab", "ab", "abab", "abababab"},  // inserted text is not scanned again
      {"a  b", " ", "_", "a__b"},
      {"name", "", "x", "name"},           // empty find changes nothing
      {"", "a", "b", ""},
      {"Copy of", "Copy Of", "", "Copy of"},  // exact case
      {"Ünï Ünï", "Ünï", "U", "U U"},
      {"a\xff" "b", "\xff", "-", "a-b"},
      // A stray byte is a character of its own and never half of a letter.
      {"\xc3" "x é", "\xc3", "-", "-x é"},
      {"é", "\xa9", "-", "é"},
      {"éx", "\xa9x", "-", "éx"},
      {"e\xcc\x81", "e\xcc", "-", "e\xcc\x81"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ReplaceAll(c.text, c.find, c.replacement), c.expected) << c.text;
  }
}

TEST(ReplaceAll, InPlaceReportsWhetherItFoundAnything) {
  std::string text = "abc";
  EXPECT_FALSE(ReplaceAllIn(text, "x", "y"));
  EXPECT_TRUE(ReplaceAllIn(text, "b", "b"));
  EXPECT_EQ(text, "abc");
}

TEST(ReplaceAllIgnoreCase, MatchesCharactersIgnoringCase) {
  const ReplaceCase cases[] = {
      {"a.JPG.jpg.JpG", "jpg", "jpeg", "a.jpeg.jpeg.jpeg"},
      {"ÄRGER ärger", "äR", "x", "xGER xger"},
      {"Straße", "SS", "x", "Straße"},  // no one-to-many folding
      {"\xff\xfe" "AB", "ab", "c", "\xff\xfe" "c"},
      {"\xc3" "A", "\xc3" "a", "ok", "ok"},  // a stray byte matches only itself
      {"xyz", "", "q", "xyz"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ReplaceAllIgnoreCase(c.text, c.find, c.replacement), c.expected) << c.text;
  }
}

TEST(ReplaceAllIgnoreCase, PassesOverMatchesFollowedByTheGuard) {
  std::string text = "a.tif b.TIFF c.Tif";
  ReplaceAllIgnoreCaseIn(text, "tif", "tiff", "f");
  EXPECT_EQ(text, "a.tiff b.TIFF c.tiff");
}

TEST(Split, KeepsEmptyPiecesAndHandlesEmptyInput) {
  EXPECT_THAT(Split("", "-"), IsEmpty());
  EXPECT_THAT(Split("", ""), IsEmpty());
  EXPECT_THAT(Split("a-b", ""), ElementsAre("a-b"));
  EXPECT_THAT(Split("a--b-", "-"), ElementsAre("a", "", "b", ""));
  EXPECT_THAT(Split("-", "-"), ElementsAre("", ""));
  EXPECT_THAT(Split("x, y, z", ", "), ElementsAre("x", "y", "z"));
  EXPECT_THAT(Split("aéb\xa9" "c", "\xa9"), ElementsAre("aéb", "c"));
}

TEST(TrimBlanks, TrimsOnlyTheBlankCharacter) {
  EXPECT_EQ(TrimBlanks("  a b  "), "a b");
  EXPECT_EQ(TrimBlanks("\ta \t"), "\ta \t");
  EXPECT_EQ(TrimBlanks("    "), "");
  EXPECT_EQ(TrimBlanks(""), "");
}

TEST(ParseInteger16, AcceptsWhatTheRuntimeConverts) {
  EXPECT_EQ(ParseInteger16("12"), 12);
  EXPECT_EQ(ParseInteger16(" -3 "), -3);
  EXPECT_EQ(ParseInteger16("+4"), 4);
  EXPECT_EQ(ParseInteger16("3.5"), 4);
  EXPECT_EQ(ParseInteger16("32767"), 32767);
  EXPECT_FALSE(ParseInteger16("32768"));
  EXPECT_FALSE(ParseInteger16(""));
  EXPECT_FALSE(ParseInteger16("1x"));
  EXPECT_FALSE(ParseInteger16("nan"));
}

TEST(Visible, EscapesWhatWouldActInsteadOfShowing) {
  struct Case {
    std::string text;
    Layout layout;
    std::string expected;
  };
  const Case cases[] = {
      {"Evil\x1b[2J\x1b[HX.TXT", Layout::kNone, R"(Evil\x1b[2J\x1b[HX.TXT)"},
      {"a\r\nb\nc\td\x7f", Layout::kNone, R"(a\r\nb\nc\td\x7f)"},
      {"a\r\nb\nc\r", Layout::kLineEnds, "a\r\nb\\nc\\r"},
      {R"(odd\name)", Layout::kNone, R"(odd\\name)"},
      {R"(odd\name)", Layout::kLineEnds, R"(odd\name)"},
      {"Ünï \xc2\x9b \xe2\x80\xae txt \xff", Layout::kNone, R"(Ünï \u009b \u202e txt \xff)"},
  };
  for (const Case& c : cases) EXPECT_EQ(Visible(c.text, c.layout), c.expected) << c.expected;
}

}  // namespace
}  // namespace tessaly::text
