#include "lists/stored_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessaly {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ParseStoredRows, ReadsEveryRowThatCanBeRead) {
  EXPECT_THAT(ParseStoredRows(""), IsEmpty());
  EXPECT_THAT(ParseStoredRows("A >> B%%1|C >> %%0|"),
              ElementsAre(StoredRow{"A >> B", true}, StoredRow{"C >> ", false}));
  // Hand-damaged: a piece without a flag, a flag that is no number, an
  // empty piece, a flag other than 1, and a last row without its "|".
  EXPECT_THAT(ParseStoredRows("plain|x%%yes||y%%2|z%% 1 |lost%%1"),
              ElementsAre(StoredRow{"plain", false}, StoredRow{"x", false},
                          StoredRow{"y", false}, StoredRow{"z", true}));
  // The flag stands behind the last "%%", so a text may end in "%".
  EXPECT_THAT(ParseStoredRows("a%%1%%0|"), ElementsAre(StoredRow{"a%%1", false}));
  EXPECT_THAT(ParseStoredRows("100%%%1|50%%%0|"),
              ElementsAre(StoredRow{"100%", true}, StoredRow{"50%", false}));
  EXPECT_THAT(ParseStoredRows("%%1|"), ElementsAre(StoredRow{"", true}));
  EXPECT_THAT(ParseStoredRows("  pad  %%1|"), ElementsAre(StoredRow{"  pad  ", true}));
}

TEST(FormatStoredRows, CanonicalTextReadsBackTheSame) {
  const std::vector<StoredRow> rows = {
      {"  a >> b ", true}, {"", false}, {"Ünï", true}, {"100%", true}, {"50%% off >> %", false}};
  const std::string stored = FormatStoredRows(rows);
  EXPECT_EQ(stored, "  a >> b %%1|%%0|Ünï%%1|100%%%1|50%% off >> %%%0|");
  EXPECT_EQ(ParseStoredRows(stored), rows);
  EXPECT_EQ(FormatStoredRows({}), "");
}

TEST(HoldsSeparator, FindsTheRowEndOnly) {
  EXPECT_TRUE(HoldsSeparator("a|b"));
  EXPECT_FALSE(HoldsSeparator("50%% off"));
  EXPECT_FALSE(HoldsSeparator("50% off >> x"));
}

}  // namespace
}  // namespace tessaly
