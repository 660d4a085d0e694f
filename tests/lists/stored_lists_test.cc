#include "lists/stored_lists.h"

#include <gtest/gtest.h>

#include "conversion/name_converter.h"
#include "conversion/sample_paths.h"
#include "list_test_support.h"
#include "lists/replace_advanced.h"
#include "lists/unwanted_formatting.h"
#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/memory_file_system.h"

namespace tessaly {
namespace {

class StoredListsTest : public ::testing::Test {
 protected:
  std::string Convert(std::string_view path) { return converter_.ConvertName(options_, path); }

  ListTestWorld world_;
  StoredLists lists_{world_.store, world_.ui};
  FixedClock clock_{CivilDate{2026, 11, 18}};
  FixedLocale locale_;
  MemoryFileSystem fs_;
  NameConverter converter_{{clock_, locale_, fs_, &lists_}};
  ConversionOptions options_;
};

TEST_F(StoredListsTest, ConversionReadsTheStoredRowsAnewForEveryName) {
  options_.cboBatch[6] = "(Advanced)";
  world_.Store("ReplaceList", "MYFILE >> Yours%%1|Oddy >> Even%%0|");
  EXPECT_EQ(Convert(kBuiltInSamples[1]),
            "c:\\graphics\\common\\Copy of Yours -    SPACE - 04 - Oddy.jpg");

  fReplaceAdvanced dialog(world_.store, world_.ui);  // a person ticks the second row
  dialog.Load();
  dialog.lstReplace.ClickCheckBox(1);
  dialog.cmdAccept.Click();
  EXPECT_EQ(Convert(kBuiltInSamples[1]),
            "c:\\graphics\\common\\Copy of Yours -    SPACE - 04 - Even.jpg");
}

TEST_F(StoredListsTest, FirstConversionWithFormattingLeavesTheDefaultStored) {
  options_.chkFormatting = kChecked;
  EXPECT_EQ(world_.Stored("FormattingList"), "<none>");
  EXPECT_EQ(Convert(kBuiltInSamples[0]), "c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg");
  EXPECT_EQ(world_.Stored("FormattingList"), kDefaultFormattingList);
}

TEST_F(StoredListsTest, HandDamagedTextIsRewrittenCanonicalByTheFirstConversion) {
  options_.chkFormatting = kChecked;
  world_.Store("FormattingList", "Copy of %%1|junk|");
  EXPECT_EQ(Convert(kBuiltInSamples[1]), "c:\\graphics\\common\\MYFILE -    SPACE - 04 - Oddy.jpg");
  EXPECT_EQ(world_.Stored("FormattingList"), "Copy of %%1|junk%%0|");
}

}  // namespace
}  // namespace tessaly
