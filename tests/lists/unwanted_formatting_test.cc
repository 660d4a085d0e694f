#include "lists/unwanted_formatting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "list_test_support.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;

class UnwantedFormattingTest : public ::testing::Test {
 protected:
  fUnwantedFormatting& Open() {
    form_.emplace(world_.store, world_.ui);
    form_->Load();
    return *form_;
  }
  std::vector<std::string> Texts(const fUnwantedFormatting& form) {
    std::vector<std::string> texts;
    for (const FormattingEntry& row : form.Rows()) texts.push_back(row.text);
    return texts;
  }

  ListTestWorld world_;
  std::optional<fUnwantedFormatting> form_;
};

TEST_F(UnwantedFormattingTest, FreshSystemShowsTheSevenDefaultRowsUnchecked) {
  fUnwantedFormatting& form = Open();
  EXPECT_THAT(Texts(form), ElementsAre("Copy Of", "Copy (##) Of", "Shortcut To", "## -", "-#",
                                       "(Radio Edit)", "- -"));
  for (const FormattingEntry& row : form.Rows()) EXPECT_FALSE(row.checked);
  form.cmdExit.Click();
  EXPECT_EQ(world_.Stored("FormattingList"), kDefaultFormattingList);
}

TEST_F(UnwantedFormattingTest, AnEmptiedListComesBackAsTheDefault) {
  fUnwantedFormatting& form = Open();
  while (form.lstRemove.ListCount() > 0) {
    form.lstRemove.SetListIndex(0);
    form.cmdRemove.Click();
  }
  form.Unload();
  EXPECT_EQ(Open().lstRemove.ListCount(), 7u);
}

TEST_F(UnwantedFormattingTest, AddPutsACheckedRowOnTopEvenWhenEmpty) {
  world_.Store("FormattingList", "a%%0|");
  fUnwantedFormatting& form = Open();
  form.txtAdd.SetText("");
  form.cmdAdd.Click();
  form.txtAdd.SetText("  blanks  ");
  form.cmdAdd.Click();
  form.cmdAdd.Click();
  form.Unload();
  EXPECT_EQ(world_.Stored("FormattingList"), "  blanks  %%1|  blanks  %%1|%%1|a%%0|");
  EXPECT_THAT(Open().Rows(), ElementsAre(FormattingEntry{"  blanks  ", true},
                                         FormattingEntry{"  blanks  ", true},
                                         FormattingEntry{"", true}, FormattingEntry{"a", false}));
}

TEST_F(UnwantedFormattingTest, RemovingMakesTheFirstRowCurrentAndShowsItsText) {
  world_.Store("FormattingList", "one%%1|two%%0|three%%1|");
  fUnwantedFormatting& form = Open();
  form.lstRemove.SetListIndex(0);
  EXPECT_EQ(form.txtEdit.text(), "one");
  form.cmdRemove.Click();
  EXPECT_EQ(form.lstRemove.ListIndex(), 0);
  EXPECT_EQ(form.txtEdit.text(), "two");
}

TEST_F(UnwantedFormattingTest, UpdateRewritesTheCurrentRowInPlace) {
  world_.Store("FormattingList", "one%%1|two%%0|");
  fUnwantedFormatting& form = Open();
  form.txtEdit.SetText("nothing current");
  form.cmdUpdate.Click();  // no current row: nothing changes
  form.lstRemove.SetListIndex(1);
  form.txtEdit.SetText("zwei");
  form.cmdUpdate.Click();
  form.txtEdit.SetText("a|b");
  form.cmdUpdate.Click();  // refused
  form.Unload();
  EXPECT_EQ(world_.Stored("FormattingList"), "one%%1|zwei%%0|");
  EXPECT_EQ(world_.ui.messages().size(), 1u);
  EXPECT_EQ(world_.ui.messages()[0].title, "Define 'Unwanted Formatting' Settings");
}

TEST_F(UnwantedFormattingTest, AddRefusesSeparators) {
  fUnwantedFormatting& form = Open();
  form.txtAdd.SetText("50|%");
  form.cmdAdd.Click();
  EXPECT_EQ(form.lstRemove.ListCount(), 7u);
  EXPECT_EQ(world_.ui.messages().size(), 1u);
}

TEST_F(UnwantedFormattingTest, FocusSelectsTheWholeTextInCharacters) {
  fUnwantedFormatting& form = Open();
  form.txtEdit.SetText("Ünï");
  form.txtEdit.Focus();
  EXPECT_EQ(form.txtEdit.selStart(), 0u);
  EXPECT_EQ(form.txtEdit.selLength(), 3u);
}

}  // namespace
}  // namespace tessaly
