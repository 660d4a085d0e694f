#include "lists/replace_advanced.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "list_test_support.h"
#include "lists/stored_rows.h"

namespace tessaly {
namespace {

class ReplaceAdvancedTest : public ::testing::Test {
 protected:
  // Loads a fresh form, as showing the dialog does.
  fReplaceAdvanced& Open() {
    form_.emplace(world_.store, world_.ui);
    form_->Load();
    return *form_;
  }
  void Add(fReplaceAdvanced& form, std::string find, std::string with) {
    form.cboBatch[0].SetText(std::move(find));
    form.cboBatch[1].SetText(std::move(with));
    form.cmdAdd.Click();
  }
  std::vector<std::string> Shown(const fReplaceAdvanced& form) {
    std::vector<std::string> rows;
    for (std::size_t i = 0; i < form.lstReplace.ListCount(); ++i) {
      rows.push_back(form.lstReplace.List(i) + (form.lstReplace.Checked(i) ? " [x]" : " [ ]"));
    }
    return rows;
  }

  ListTestWorld world_;
  std::optional<fReplaceAdvanced> form_;
};

TEST_F(ReplaceAdvancedTest, FreshSystemHasAnEmptyListAndTheTwentyChoices) {
  fReplaceAdvanced& form = Open();
  EXPECT_EQ(form.lstReplace.ListCount(), 0u);
  EXPECT_EQ(form.cboBatch[0].items().size(), 20u);
  EXPECT_EQ(form.cboBatch[1].items().back(), "(none)");
  form.cmdAccept.Click();
  EXPECT_FALSE(form.loaded());
  EXPECT_EQ(world_.Stored("ReplaceList"), "<none>");  // the empty text reads as the default
}

TEST_F(ReplaceAdvancedTest, NewRowsGoOnTopCheckedAndAreStoredAtUnload) {
  fReplaceAdvanced& form = Open();
  Add(form, "a", "1");
  Add(form, "b", "2");
  Add(form, "b", "2");  // the boxes keep their texts; the same row again
  Add(form, "", "");
  EXPECT_THAT(Shown(form), ::testing::ElementsAre(" >>  [x]", "b >> 2 [x]", "b >> 2 [x]",
                                                  "a >> 1 [x]"));
  EXPECT_EQ(world_.Stored("ReplaceList"), "<none>");  // nothing is stored before the unload
  form.Unload();
  EXPECT_EQ(world_.Stored("ReplaceList"), " >> %%1|b >> 2%%1|b >> 2%%1|a >> 1%%1|");

  fReplaceAdvanced& again = Open();
  EXPECT_THAT(again.Rows(), ::testing::ElementsAre(ReplaceEntry{"", "", true},
                                                   ReplaceEntry{"b", "2", true},
                                                   ReplaceEntry{"b", "2", true},
                                                   ReplaceEntry{"a", "1", true}));
}

TEST_F(ReplaceAdvancedTest, CheckBoxClicksAndRemovalReachTheRecord) {
  world_.Store("ReplaceList", "a >> 1%%1|b >> 2%%0|c >> 3%%1|");
  fReplaceAdvanced& form = Open();
  form.lstReplace.ClickCheckBox(0);  // clears a, and makes it the current row
  EXPECT_FALSE(form.lNorm.Checked(0));
  form.lstReplace.SetListIndex(1);   // the unchecked b is highlighted
  form.cmdRemoveSelected.Click();
  EXPECT_EQ(form.lstReplace.ListIndex(), -1);
  form.cmdRemoveSelected.Click();    // no current row: nothing happens
  form.Unload();
  EXPECT_EQ(world_.Stored("ReplaceList"), "a >> 1%%0|c >> 3%%1|");
}

TEST_F(ReplaceAdvancedTest, ClearAllCannotBeTakenBack) {
  world_.Store("ReplaceList", "a >> 1%%1|");
  fReplaceAdvanced& form = Open();
  form.cmdClear.Click();
  form.Unload();
  EXPECT_EQ(Open().lstReplace.ListCount(), 0u);
}

TEST_F(ReplaceAdvancedTest, TextsHoldingASeparatorAreRefusedWithAMessage) {
  fReplaceAdvanced& form = Open();
  Add(form, "a|b", "x");
  Add(form, "a", "1|2");
  EXPECT_EQ(form.lstReplace.ListCount(), 0u);
  ASSERT_EQ(world_.ui.messages().size(), 2u);
  EXPECT_EQ(world_.ui.messages()[0].text, kSeparatorRefusal);
  EXPECT_EQ(world_.ui.messages()[0].title, "Advanced Replace");
}

TEST_F(ReplaceAdvancedTest, DamagedStoredTextLoadsWhatCanBeReadAndIsWrittenBackCanonical) {
  world_.Store("ReplaceList", "A >> B%%1|C|D >> E%%x|x >> y >> z%%1|  pad  >>  q %%1|F >> G%%1");
  fReplaceAdvanced& form = Open();
  EXPECT_THAT(form.Rows(), ::testing::ElementsAre(ReplaceEntry{"A", "B", true},
                                                  ReplaceEntry{"C", "", false},
                                                  ReplaceEntry{"D", "E", false},
                                                  ReplaceEntry{"x", "y", true},
                                                  ReplaceEntry{"  pad ", " q ", true}));
  form.Unload();
  EXPECT_EQ(world_.Stored("ReplaceList"),
            "A >> B%%1|C >> %%0|D >> E%%0|x >> y%%1|  pad  >>  q %%1|");
}

TEST_F(ReplaceAdvancedTest, LongListsComeBackWhole) {
  std::string stored;
  for (int i = 0; i < 200; ++i) stored += "find" + std::to_string(i) + " >> r%%1|";
  world_.Store("ReplaceList", stored);
  fReplaceAdvanced& form = Open();
  EXPECT_EQ(form.lNorm.ListCount(), 200u);
  form.Unload();
  EXPECT_EQ(world_.Stored("ReplaceList"), stored);
}

}  // namespace
}  // namespace tessaly
