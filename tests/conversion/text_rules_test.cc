#include "conversion/text_rules.h"

#include <gtest/gtest.h>

namespace tessaly {
namespace {

TEST(CapitalizeWords, TitleCaseWithSmallWordsBetweenBlanks) {
  const std::pair<std::string, std::string> cases[] = {
      {"c:\\graphics\\common\\MyFile - My file data HeadEr .mp3",
       "C:\\Graphics\\Common\\Myfile - My File Data Header .mp3"},
      {"c:\\graphics\\common\\Copy of MYFILE -    SPACE - 04 - Oddy.jpg",
       "C:\\Graphics\\Common\\Copy of Myfile -    Space - 04 - Oddy.jpg"},
      {"c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg",
       "C:\\Graphics\\Common\\Myfile_(1).tmd.jpg.jpeg"},
      {"d:\\music\\OF MICE AND MEN.mp3", "D:\\Music\\Of Mice and Men.mp3"},
      {"d:\\a\\lord of the rings or the.txt", "D:\\A\\Lord of the Rings or The.txt"},
      {"d:\\a\\black and_white.txt", "D:\\A\\Black And_white.txt"},
      {"d:\\a\\(new) file.txt", "D:\\A\\(new) File.txt"},
      {"d:\\a/b c/d", "D:\\A/B C/D"},
      {"c:\\Graphics\\MyFile", "C:\\Graphics\\Myfile"},
      {"x of of y", "X of Of Y"},  // the blank between is used up by the first match
      {"x Of The y", "X of the Y"},
      {"2ND name.TXT", "2nd Name.txt"},
      {"    ", "    "},
      {"", ""},
      {"ÉCOLE été\\über", "École Été\\Über"},
      {"\xff" "ABC def", "\xff" "abc Def"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(CapitalizeWords(text), expected) << text;
}

TEST(FixExtension, RewritesSpellingsAnywhereIgnoringCase) {
  struct Case {
    std::string text;
    bool shortForm;
    std::string expected;
  } cases[] = {
      {"a.tmd.jpg.jpeg", true, "a.tmd.jpg.jpg"},
      {"a.tmd.jpg.jpeg", false, "a.tmd.jpeg.jpeg"},
      {"a.TIF", false, "a.tiff"},
      {"a.tiff", false, "a.tiff"},
      {"a.TIFF", false, "a.TIFF"},  // an f of either case behind it
      {"a.TIFF", true, "a.tif"},
      {"a.mp3", false, "a.mp3"},
      {"a.MPG3", true, "a.mp3"},
      {"a.mpeg3", true, "a.mp3"},  // the short passes build on each other
      {"a.MPG", false, "a.mpeg"},
      {"c:\\jpg\\myjpgfile.txt", false, "c:\\jpeg\\myjpegfile.txt"},
      {"a.JPG", false, "a.jpeg"},
      {"", true, ""},
  };
  for (const auto& c : cases) EXPECT_EQ(FixExtension(c.text, c.shortForm), c.expected) << c.text;
}

TEST(FixSpacing, OnePassOfEachStepThenTrim) {
  const std::pair<std::string, std::string> cases[] = {
      {"MyFile - My file data HeadEr .mp3", "MyFile - My file data HeadEr.mp3"},
      {"name  .txt", "name .txt"},  // only the last blank before the period goes
      {"   ", ""},
      {"a    b", "a b"},
      {"a     b", "a  b"},  // five blanks end as two
      {"a      b", "a b"},
      {" c:\\a\\ b.txt ", "c:\\a\\ b.txt"},  // the trim sees the whole path
      {"", ""},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(FixSpacing(text), expected) << text;
}

}  // namespace
}  // namespace tessaly
