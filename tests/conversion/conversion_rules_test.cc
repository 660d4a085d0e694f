// The conversion's small rules: path parts, title case, extensions,
// spacing and dates.
#include <gtest/gtest.h>

#include "conversion/date_format.h"
#include "conversion/path_routines.h"
#include "conversion/text_rules.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/scripted_ui.h"

namespace tessaly {
namespace {

// A path splits at its last backslash into parts that join back whole.
TEST(PathRoutines, PartsExtensionClosingBackslashAndFolders) {
  struct Case {
    std::string path, folder, name;
  } cases[] = {
      {"c:\\graphics\\common\\a.txt", "c:\\graphics\\common\\", "a.txt"},
      {"c:\\graphics\\common\\", "c:\\graphics\\common\\", ""},
      {"c:name", "", "c:name"},
      {"\\\\server\\share\\x", "\\\\server\\share\\", "x"},
      {"a/b\\c/d", "a/b\\", "c/d"},  // "/" is an ordinary character
  };
  ScriptedUi ui;
  for (const auto& c : cases) {
    EXPECT_EQ(FileNameOf(c.path, 1, ui), c.folder) << c.path;
    EXPECT_EQ(FileNameOf(c.path, 2, ui), c.name) << c.path;
    EXPECT_EQ(c.folder + c.name, c.path);
  }
  EXPECT_TRUE(ui.messages().empty());
  // The extension: the last period, colon or backslash decides.
  const std::pair<std::string, std::string> extensions[] = {
      {"c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg", "jpeg"},
      {"c:\\my.folder\\name", ""},
      {"name.", ""},
      {".profile", "profile"},
      {"a.b:c", ""},
      {"photo.jpg/x", "jpg/x"},  // "/" is no separator
  };
  for (const auto& [path, extension] : extensions) EXPECT_EQ(FileExtensionOf(path), extension) << path;
  // A closing backslash is added where the last character is none.
  EXPECT_EQ(WithTrailingBackslash("c:\\a"), "c:\\a\\");
  EXPECT_EQ(WithTrailingBackslash("c:\\a\\\\"), "c:\\a\\\\");
  EXPECT_EQ(WithTrailingBackslash(""), "\\");
  // A network path counts as a folder without a look; a failed look is no folder.
  MemoryFileSystem fs;
  fs.AddDirectory("d:\\photos");
  fs.AddFile("d:\\photos\\a.jpg");
  EXPECT_TRUE(DirectoryExists("\\\\nowhere\\share", fs));
  EXPECT_TRUE(DirectoryExists("d:\\photos", fs));
  EXPECT_FALSE(DirectoryExists("d:\\photos\\a.jpg", fs));
  EXPECT_FALSE(DirectoryExists("", fs));
  fs.Remove("d:\\photos");
  EXPECT_FALSE(DirectoryExists("d:\\photos", fs));
}

TEST(CapitalizeWords, TitleCaseWithSmallWordsBetweenBlanks) {
  const std::pair<std::string, std::string> cases[] = {
      {"d:\\music\\OF MICE AND MEN.mp3", "D:\\Music\\Of Mice and Men.mp3"},
      {"d:\\a\\lord of the rings or the.txt", "D:\\A\\Lord of the Rings or The.txt"},
      {"d:\\a\\black and_white.txt", "D:\\A\\Black And_white.txt"},
      {"d:\\a\\(new) file.txt", "D:\\A\\(new) File.txt"},
      {"x of of y", "X of Of Y"},  // the blank between is used up by the first match
      {"x Of The y", "X of the Y"},
      {"2ND name.TXT", "2nd Name.txt"},
      {"ÉCOLE été\\über", "École Été\\Über"},
      {"\xff" "ABC def", "\xff" "abc Def"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(CapitalizeWords(text), expected) << text;
}

TEST(FixExtension, RewritesSpellingsAnywhereIgnoringCase) {
  const std::tuple<std::string, bool, std::string> cases[] = {
      {"a.tmd.jpg.jpeg", true, "a.tmd.jpg.jpg"},
      {"a.TIF", false, "a.tiff"},
      {"a.TIFF", false, "a.TIFF"},  // an f of either case behind it
      {"a.TIFF", true, "a.tif"},
      {"a.MPG3", true, "a.mp3"},
      {"a.mpeg3", true, "a.mp3"},  // the short passes build on each other
      {"a.MPG", false, "a.mpeg"},
      {"c:\\jpg\\myjpgfile.txt", false, "c:\\jpeg\\myjpegfile.txt"},
  };
  for (const auto& [text, shortForm, expected] : cases) EXPECT_EQ(FixExtension(text, shortForm), expected) << text;
}

TEST(FixSpacing, OnePassOfEachStepThenTrim) {
  const std::pair<std::string, std::string> cases[] = {
      {"MyFile - My file data HeadEr .mp3", "MyFile - My file data HeadEr.mp3"},
      {"name  .txt", "name .txt"},  // only the last blank before the period goes
      {"   ", ""},
      {"a    b", "a b"},
      {"a     b", "a  b"},  // five blanks end as two
      {" c:\\a\\ b.txt ", "c:\\a\\ b.txt"},  // the trim sees the whole path
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(FixSpacing(text), expected) << text;
}

TEST(FormatDate, PatternLanguage) {
  const CivilDate day{2026, 11, 18};  // a Wednesday
  const std::pair<std::string, std::string> cases[] = {
      {"yyy", "26322"},  // two-digit year, then the day of the year
      {"w ww q", "4 47 4"},
      {"hh:mm:ss", "00:00:00"},  // no time of day; m behind an hour is minutes
      {"h AM/PM", "12 AM"},
      {"\"dd\" dd", "dd 18"},
      {"yyyy\\mm", "2026\\11"},
      {"", "11-18-2026"},
  };
  for (const auto& [pattern, expected] : cases) EXPECT_EQ(FormatDate(pattern, day), expected) << pattern;
}

// Weeks start on Sunday and week one holds the first of January; the day of
// the year counts leap years.
TEST(FormatDate, WeekWeekdayAndDayOfTheYear) {
  // 2026-01-01 is a Thursday, so Sunday 4 January opens week 2.
  const std::pair<CivilDate, std::string> cases[] = {
      {{2026, 1, 3}, "1 7 3"},      {{2026, 1, 4}, "2 1 4"},    {{2026, 12, 31}, "53 5 365"},
      {{2023, 1, 1}, "1 1 1"},      {{2024, 12, 31}, "53 3 366"}, {{2100, 3, 1}, "10 2 60"},
      {{2000, 3, 1}, "10 4 61"},
  };
  for (const auto& [date, expected] : cases) EXPECT_EQ(FormatDate("ww w y", date), expected) << expected;
}

}  // namespace
}  // namespace tessaly
