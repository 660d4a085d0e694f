#include "conversion/name_converter.h"

#include <gtest/gtest.h>

#include <functional>

#include "conversion/sample_paths.h"
#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/memory_file_system.h"

namespace tessaly {
namespace {

// Lists as a store would hand them out, counting the loads.
class CountingListSource : public ListSource {
 public:
  void LoadReplaceList(std::vector<ReplaceEntry>& rows) override {
    ++replaceLoads;
    rows = replace;
  }
  void LoadFormattingList(std::vector<FormattingEntry>& rows) override {
    ++formattingLoads;
    rows = formatting;
  }
  std::vector<ReplaceEntry> replace;
  std::vector<FormattingEntry> formatting;
  int replaceLoads = 0;
  int formattingLoads = 0;
};

class NameConverterTest : public ::testing::Test {
 protected:
  std::string Convert(std::string_view path) { return converter_.ConvertName(options_, path); }

  FixedClock clock_{CivilDate{2026, 11, 18}};
  FixedLocale locale_;
  MemoryFileSystem fs_;
  CountingListSource lists_;
  NameConverter converter_{{clock_, locale_, fs_, &lists_}};
  ConversionOptions options_;
};

// Each row with "Include Path" clear, where the folder stays as it was and
// only the name changes (to `shielded` where given, else to the name of
// `included` in the source's folder), and ticked, where the stages act on
// the whole path.
TEST_F(NameConverterTest, BoxesTickedOneRowAtATime) {
  using O = ConversionOptions;
  const auto& s = kBuiltInSamples;
  fs_.AddDirectory("e:\\my_new.folder");
  const struct {
    std::vector<CheckState O::*> ticked;
    std::string_view source;
    std::string included, shielded = "";
    bool newFolder = false;
  } rows[] = {
      {{}, s[0], "c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg"},
      {{&O::chkRemoveNumbers}, s[0], "c:\\graphics\\common\\myfile_.tmd.jpg.jpeg"},
      {{&O::chkExtra}, s[0], "c:\\graphics\\common\\myfile_(1)tmdjpg.jpeg"},
      {{&O::chkShortExtension}, s[0], "c:\\graphics\\common\\myfile_(1).tmd.jpg.jpg"},
      {{&O::chkLongExtension}, s[1], "c:\\graphics\\common\\Copy of MYFILE -    SPACE - 04 - Oddy.jpeg"},
      {{&O::chkRemoveu, &O::chkFixSpacing}, s[2], "c:\\graphics\\common\\MyFile - My file data HeadEr.mp3"},
      {{&O::chkCapitalize}, s[2], "C:\\Graphics\\Common\\Myfile - My File Data Header .mp3"},
      {{&O::chkUpperCase}, s[1], "C:\\GRAPHICS\\COMMON\\COPY OF MYFILE -    SPACE - 04 - ODDY.JPG"},
      {{&O::chkRemoveNumbers, &O::chkShortExtension, &O::chkExtra, &O::chkRemoveu, &O::chkRemoveDoubleSpace,
        &O::chkCapitalize, &O::chkFixSpacing},
       s[0], "C:\\Graphics\\Common\\Myfile Tmdjpg.jpg"},
      {{&O::chkRemoveDoubleSpace, &O::chkFixSpacing}, s[1],
       "c:\\graphics\\common\\Copy of MYFILE - SPACE - 04 - Oddy.jpg"},
      {{&O::chkRemoveu, &O::chkExtra}, "\\home\\ann\\my_photos.2024\\a_b.c.JPG",
       "\\home\\ann\\my photos2024\\a bc.jpg"},
      {{&O::chkCapitalize}, "\\home\\ann\\x.txt", "\\Home\\Ann\\X.txt"},
      // The trim sees the whole path: a blank behind the folder stays.
      {{&O::chkFixSpacing}, "\\tmp\\ x  y .txt", "\\tmp\\ x y.txt"},
      // Three single passes: runs of 5 and 11 blanks end as one and two.
      {{&O::chkRemoveDoubleSpace}, "c:\\a\\x     y           z.txt", "c:\\a\\x y  z.txt"},
      // The destination folder is shielded like the source's.
      {{&O::chkRemoveu, &O::chkUpperCase}, "c:\\a\\b_c.txt", "E:\\MY NEW.FOLDER\\B C.TXT",
       "e:\\my_new.folder\\B C.TXT", true},
  };
  for (const auto& row : rows) {
    options_ = ConversionOptions();
    for (auto box : row.ticked) options_.*box = kChecked;
    options_.optMoveNewFolder = row.newFolder;
    options_.lFolder = "e:\\my_new.folder";
    const std::string named = std::string(row.source.substr(0, row.source.rfind('\\') + 1)) +
                              row.included.substr(row.included.rfind('\\') + 1);
    EXPECT_EQ(Convert(row.source), row.shielded.empty() ? named : row.shielded) << row.source;
    options_.chkIncludePaths = kChecked;
    EXPECT_EQ(Convert(row.source), row.included) << row.source;
  }
  // Folder text a placement brings in is part of the name work.
  options_ = ConversionOptions();
  options_.cboBatch = {"my_sub", "\\", "Document Name", "", "", "", "", ""};
  options_.chkRemoveu = kChecked;
  EXPECT_EQ(Convert("c:\\my_dir\\a_b.txt"), "c:\\my_dir\\my sub\\a b");
}

// One path each, on options set by the row.
TEST_F(NameConverterTest, OptionsOnOnePath) {
  fs_.AddDirectory("e:\\sorted");
  const struct {
    std::function<void(ConversionOptions&)> set;
    std::string source, expected;
  } rows[] = {
      // Defaults: the extension in lower case. No folder: the work text
      // starts with a backslash.
      {[](auto&) {}, "README", "\\README."},
      {[](auto&) {}, "d:\\raw\\\xff\xfe name.TXT", "d:\\raw\\\xff\xfe name.txt"},
      {[](auto& o) { o.chkAllowSpaces = kUnchecked; }, "c:\\a b\\my file_.txt", "c:\\a b\\my_file_.txt"},
      {[](auto& o) { o.chkRemoveu = o.chkUpperCase = kGrayed; }, "c:\\a\\my_file.txt", "c:\\a\\my_file.txt"},
      // Lower case wins over capitals.
      {[](auto& o) { o.chkIncludePaths = o.chkLowercase = o.chkUpperCase = kChecked; },
       "d:\\Fotos\\\xff" "A.JPG", "d:\\fotos\\\xff" "a.jpg"},
      {[](auto& o) { o.cboBatch = {"Document Name", " ", "3 Digit Serial Number", "Serial Letter (A, B, C...)",
                                   "mmddyy (date)", "EXTENSION", "", ""}; },
       std::string(kBuiltInSamples[0]), "c:\\graphics\\common\\myfile_(1).tmd.jpg 001A111826.JPEG"},
      {[](auto& o) { o.cboBatch = {}; }, std::string(kBuiltInSamples[2]), "c:\\graphics\\common\\"},
      // Extra periods: one always stands before the extension, even an empty one.
      {[](auto& o) { o.chkExtra = kChecked, o.cboBatch = {"Document Name", "", "", "", "", "", "", ""}; },
       "c:\\docs\\name", "c:\\docs\\name."},
      // A placement bringing a backslash moves the folder boundary.
      {[](auto& o) { o.cboBatch = {"yyyy (date)", "\\", "Document Name", "extension", "", "", "", ""}; },
       "c:\\photos\\IMG_1.JPG", "c:\\photos\\2026\\IMG_1.jpg"},
      {[](auto& o) {
         o.cboBatch = {"yyyy (date)", "\\", "Document Name", "extension", "", "", "", ""};
         o.optMoveNewFolder = true, o.lFolder = "e:\\sorted";
       },
       "c:\\photos\\IMG_1.JPG", "e:\\sorted\\IMG_1.jpg"},
      // The destination folder is used only while it exists or is on the network.
      {[](auto& o) { o.lFolder = "e:\\sorted"; }, "c:\\a\\b.txt", "c:\\a\\b.txt"},
      {[](auto& o) { o.optMoveNewFolder = true, o.lFolder = "e:\\sorted", o.chkUpperCase = kChecked; },
       "c:\\a\\b.txt", "e:\\sorted\\B.TXT"},
      {[](auto& o) { o.optMoveNewFolder = true, o.lFolder = "e:\\gone"; }, "c:\\a\\b.txt", "c:\\a\\b.txt"},
      {[](auto& o) { o.optMoveNewFolder = true, o.lFolder = "\\\\server\\share"; }, "c:\\a\\b.txt",
       "\\\\server\\share\\b.txt"},
  };
  for (const auto& row : rows) {
    options_ = ConversionOptions();
    row.set(options_);
    EXPECT_EQ(Convert(row.source), row.expected) << row.source;
  }
  for (CheckState state : {kChecked, kGrayed}) {  // only a tick shows the panel
    options_.chkIncludePaths = state;
    Convert(kBuiltInSamples[0]);
    EXPECT_EQ(options_.pFolderPathVisible, state == kChecked);
  }
}

TEST_F(NameConverterTest, SerialRisesOncePerNameWhetherUsedOrNot) {
  options_.cboBatch = {"2 Digit Serial Number", "-", "2 Digit Serial Number", "", "", "", "", ""};
  options_.serial = 98;
  EXPECT_EQ(Convert("c:\\x.txt"), "c:\\99-99");
  EXPECT_EQ(Convert("c:\\y.txt"), "c:\\100-100");
  options_.cboBatch = {"Document Name", "", "", "", "", "", "", ""};
  Convert("c:\\z.txt");
  EXPECT_EQ(options_.serial, 101);
}

TEST_F(NameConverterTest, ReplaceBoxesResolveTokensOnTheWorkText) {
  const struct {
    std::string find, with, expected;
  } cases[] = {
      {"file", "", "c:\\graphics\\common\\MyFile - My  data HeadEr .mp3"},
      {"MyFile", "Document Name",
       "c:\\graphics\\common\\MyFile - My file data HeadEr  - My file data HeadEr .mp3"},
      {"graphics", "pics", "c:\\graphics\\common\\MyFile - My file data HeadEr .mp3"},
      {"Split(\\,2)", "x", "c:\\graphics\\common\\MyFile - My file data HeadEr .mp3"},
      {"", "x", "c:\\graphics\\common\\MyFile - My file data HeadEr .mp3"},
      {".mp3", "2 Digit Serial Number", "c:\\graphics\\common\\MyFile - My file data HeadEr 01"},
  };
  for (const auto& c : cases) {
    options_.cboBatch[6] = c.find;
    options_.cboBatch[7] = c.with;
    options_.serial = 0;
    EXPECT_EQ(Convert(kBuiltInSamples[2]), c.expected) << c.find;
  }
}

TEST_F(NameConverterTest, AdvancedReplaceAppliesCheckedRowsLiterallyInOrder) {
  options_.cboBatch[6] = "(Advanced)";
  options_.cboBatch[7] = "ignored";
  lists_.replace = {{"Copy of ", "", true},
                    {"Document Name", "x", true},  // a literal, not a token
                    {" - #", "#", true},
                    {"Oddy", "Odd", false}};
  // " - 0" (j = 0) matches the front of " - 04" before j = 4 comes.
  EXPECT_EQ(Convert(kBuiltInSamples[1]), "c:\\graphics\\common\\MYFILE -    SPACE#4 - Oddy.jpg");
  EXPECT_EQ(lists_.replaceLoads, 1);
  EXPECT_EQ(lists_.formattingLoads, 0);

  lists_.replace = {{"MYFILE", "Yours", true}};  // a saved row counts from the next name
  EXPECT_EQ(Convert(kBuiltInSamples[1]),
            "c:\\graphics\\common\\Copy of Yours -    SPACE - 04 - Oddy.jpg");
  EXPECT_EQ(lists_.replaceLoads, 2);

  options_.cboBatch[6] = "(advanced)";  // any other text is a plain find text
  Convert(kBuiltInSamples[1]);
  EXPECT_EQ(lists_.replaceLoads, 2);
}

TEST_F(NameConverterTest, UnwantedFormattingRemovesActiveRowsWhenTicked) {
  lists_.formatting = {{"Copy of ", true}, {" - #", true}, {"Oddy", false}};
  EXPECT_EQ(Convert(kBuiltInSamples[1]),
            "c:\\graphics\\common\\Copy of MYFILE -    SPACE - 04 - Oddy.jpg");
  EXPECT_EQ(lists_.formattingLoads, 0);
  options_.chkFormatting = kChecked;
  EXPECT_EQ(Convert(kBuiltInSamples[1]), "c:\\graphics\\common\\MYFILE -    SPACE4 - Oddy.jpg");
  EXPECT_EQ(lists_.formattingLoads, 1);
  // Without a list source the record's own list is used.
  NameConverter inMemory({clock_, locale_, fs_, nullptr});
  options_.FormattingList = {{"MYFILE", true}};
  EXPECT_EQ(inMemory.ConvertName(options_, kBuiltInSamples[1]),
            "c:\\graphics\\common\\Copy of  -    SPACE - 04 - Oddy.jpg");
}

}  // namespace
}  // namespace tessaly
