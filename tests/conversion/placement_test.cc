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
      {"document name", "copy of myfile -    space - 04 - oddy"},
      {"DOCUMENT NAME", "COPY OF MYFILE -    SPACE - 04 - ODDY"},
      {"EXTENSION", ".JPG"},
      {"mm-dd-yyyy (date)", "11-18-2026"},
      {"yyddmm (date)", "261811"},
      {"dddd ddd d mmmm mmm (date)", "woensdag wo 18 november nov"},
      {"Split(-,1)", "c:\\graphics\\common\\Copy of MYFILE "},
      {"Split(-,4)", " Oddy.JPG"},
      {"Split(\\,3)", "common"},
      {"Split(-,1.4)", "c:\\graphics\\common\\Copy of MYFILE "},  // numbers round half to even
      {"Split(-,2.5)", "    SPACE "},
      {"Split(-, 3 )", " 04 "},
      {"Split(,1)", std::string(kBuiltInSamples[1])},  // empty separator: one piece
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
  EXPECT_EQ(Resolve("Split(-,1)", ""), "Split(-,1)");  // an empty path has no pieces
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
      {7, "1 Digit Serial Number", "7"},     {100, "2 Digit Serial Number", "100"},
      {42, "4 Digit Serial Number", "0042"}, {28, "Serial Letter (A, B, C...)", "ZB"},
      {-5, "2 Digit Serial Number", "-05"},
  };
  for (const auto& c : cases) {
    options_.serial = c.serial;
    EXPECT_EQ(Resolve(c.token), c.expected) << c.token << " " << c.serial;
  }
}

TEST(SerialLetters, RunOfZThenALastLetter) {
  const std::pair<std::int32_t, std::string> cases[] = {
      {26, "z"}, {27, "za"}, {52, "zz"}, {53, "zza"}, {0, "-a"},
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
