#include "text/case_mapping.h"

#include <gtest/gtest.h>

#include "text/utf8.h"

namespace tessaly::text {
namespace {

TEST(CaseMapping, MapsLettersBeyondAscii) {
  EXPECT_EQ(UpperCase("Ünïcode Ça.JPG"), "ÜNÏCODE ÇA.JPG");
  EXPECT_EQ(LowerCase("Ünïcode Ça.JPG"), "ünïcode ça.jpg");
  EXPECT_EQ(UpperCase("ελληνικά кириллица"), "ΕΛΛΗΝΙΚΆ КИРИЛЛИЦА");
  EXPECT_EQ(UpperCase("straße"), "STRAßE");  // one-to-many mappings keep the letter
  EXPECT_EQ(LowerCase("ÀÉÎÕÜ"), "àéîõü");
}

TEST(CaseMapping, LeavesBytesThatAreNoUtf8Unchanged) {
  const std::string cases[] = {
      "ab\xff" "cd",          // a byte that never starts a character
      "ab\xc3",               // a sequence cut short at the end
      "\xc0\xaf" "x",         // an overlong form
      "\xed\xa0\x80" "y",     // a surrogate
      "\xe2\x82" "z",         // a sequence cut short in the middle
  };
  for (const std::string& raw : cases) {
    std::string upper = raw, lower = raw;
    for (char& c : upper) if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    for (char& c : lower) if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    EXPECT_EQ(UpperCase(raw), upper);
    EXPECT_EQ(LowerCase(raw), lower);
  }
}

TEST(CaseMapping, CapitalizeFirstWorksOnWholeCharacters) {
  EXPECT_EQ(CapitalizeFirst("élan VITAL", RestOfWord::kLower), "Élan vital");
  EXPECT_EQ(CapitalizeFirst("élan VITAL", RestOfWord::kUnchanged), "Élan VITAL");
  EXPECT_EQ(CapitalizeFirst("\xff" "ABC", RestOfWord::kLower), "\xff" "abc");
  EXPECT_EQ(CapitalizeFirst("", RestOfWord::kLower), "");
}

TEST(Utf8, CountsCharactersNotBytes) {
  EXPECT_EQ(CharCount(""), 0u);
  EXPECT_EQ(CharCount("Ünï"), 3u);
  EXPECT_EQ(CharCount("a€𝄞"), 3u);
  EXPECT_EQ(CharCount("\xff\xfe" "a"), 3u);  // each stray byte is one character
}

TEST(Utf8, EveryByteSequenceSurvivesDecodeAndEncode) {
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

}  // namespace
}  // namespace tessaly::text
