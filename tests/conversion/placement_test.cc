// Placements, serials and the "#" lists.
#include <gtest/gtest.h>
#include <random>

#include "conversion/numbered_replace.h"
#include "conversion/placement.h"
#include "conversion/sample_paths.h"
#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_locale.h"
#include "text/text_ops.h"

namespace tessaly {
namespace {

class PlacementTest : public ::testing::Test {
 protected:
  std::string Resolve(std::string_view text, std::string_view path = kBuiltInSamples[1]) {
    return ResolvePlacement(text, path, options_, clock_, locale_);
  }

  // Names of the day (a Wednesday) in another language, so that a row
  // shows where a date's names come from.
  static DateNames DutchNames() {
    DateNames names = EnglishDateNames();
    names.months[10] = "november";
    names.monthsShort[10] = "nov";
    names.weekdays[3] = "woensdag";
    names.weekdaysShort[3] = "wo";
    return names;
  }

  FixedClock clock_{CivilDate{2026, 11, 18}};
  FixedLocale locale_{"-", ":", ",", DutchNames()};
  ConversionOptions options_;
};

TEST_F(PlacementTest, TokensOfTheSecondSample) {
  const std::pair<std::string, std::string> cases[] = {
      {"Document Name", "Copy of MYFILE -    SPACE - 04 - Oddy"},
      {"document name", "copy of myfile -    space - 04 - oddy"},
      {"DOCUMENT NAME", "COPY OF MYFILE -    SPACE - 04 - ODDY"},
      {"EXTENSION", ".JPG"},
      {"extension", ".jpg"},
      {"mmddyy (date)", "111826"},
      {"mm-dd-yyyy (date)", "11-18-2026"},
      {"yyyy (date)", "2026"},
      {"yyddmm (date)", "261811"},
      {"mmdd (date)", "1118"},
      {"dddd ddd d mmmm mmm (date)", "woensdag wo 18 november nov"},
      {"Split(-,1)", "c:\\graphics\\common\\Copy of MYFILE "},
      {"Split(-,2)", "    SPACE "},
      {"Split(-,4)", " Oddy.JPG"},
      {"Split(\\,3)", "common"},
      {"(none)", ""},
      {"", ""},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(Resolve(text), expected) << text;
}

TEST_F(PlacementTest, AnythingElseIsFreeTextIncludingFailedSplits) {
  const std::string cases[] = {
      "Split(-,5)", "Split(-,0)", "Split(-,x)", "Split(,,1)", "Split(-)", "Split(-,)",
      "Split(-,99999)", "split(-,2)", "SPLIT(-,2)", "(date)", "(date) mm",
      "mm (Date)", "Extension", "Document name", "Document Name 2", " - ", "(Advanced)",
  };
  for (const std::string& text : cases) EXPECT_EQ(Resolve(text), text) << text;
}

TEST_F(PlacementTest, SplitNumbersRoundLikeTheRuntime) {
  EXPECT_EQ(Resolve("Split(-,1.4)"), Resolve("Split(-,1)"));
  EXPECT_EQ(Resolve("Split(-,2.5)"), Resolve("Split(-,2)"));  // half to even
  EXPECT_EQ(Resolve("Split(-, 3 )"), " 04 ");
  EXPECT_EQ(Resolve("Split(,1)"), kBuiltInSamples[1]);  // empty separator: one piece
  EXPECT_EQ(Resolve("Split(-,1)", ""), "Split(-,1)");   // empty path: no pieces
}

TEST_F(PlacementTest, NameTokensOnNamesWithoutOrWithOddPeriods) {
  const struct {
    std::string path, name, extension;
  } cases[] = {
      {"c:\\docs\\README", "README", "."},
      {"c:\\docs\\archive.", "archive", "."},
      {"c:\\docs\\.profile", "", ".profile"},
      {"c:\\docs\\", "", "."},
      {"c:\\my.folder\\name", "name", "."},
      {"Ünïcode Ça.JPG", "Ünïcode Ça", ".jpg"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Resolve("Document Name", c.path), c.name) << c.path;
    EXPECT_EQ(Resolve("extension", c.path), c.extension) << c.path;
  }
  EXPECT_EQ(Resolve("DOCUMENT NAME", "Ünïcode Ça.JPG"), "ÜNÏCODE ÇA");
}

TEST_F(PlacementTest, SerialNumbersWidenAndNeverWrap) {
  const struct {
    std::int32_t serial;
    std::string token, expected;
  } cases[] = {
      {7, "1 Digit Serial Number", "7"},   {7, "2 Digit Serial Number", "07"},
      {100, "2 Digit Serial Number", "100"}, {1, "3 Digit Serial Number", "001"},
      {42, "4 Digit Serial Number", "0042"}, {123456, "5 Digit Serial Number", "123456"},
      {28, "Serial Letter (A, B, C...)", "ZB"}, {-5, "2 Digit Serial Number", "-05"},
  };
  for (const auto& c : cases) {
    options_.serial = c.serial;
    EXPECT_EQ(Resolve(c.token), c.expected) << c.token << " " << c.serial;
  }
}

TEST(SerialLetters, RunOfZThenALastLetter) {
  const std::pair<std::int32_t, std::string> cases[] = {
      {1, "a"}, {26, "z"}, {27, "za"}, {28, "zb"}, {52, "zz"}, {53, "zza"},
      {0, "-a"}, {-3, "-a"},
  };
  for (const auto& [n, expected] : cases) EXPECT_EQ(SerialLetters(n), expected) << n;
}

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
