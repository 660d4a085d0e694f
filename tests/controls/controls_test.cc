#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "controls/buttons.h"
#include "controls/combo_box.h"
#include "controls/list_box.h"
#include "text/text_ops.h"

namespace tessaly {
namespace {

std::vector<std::string> Texts(const ListBox& list) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < list.ListCount(); ++i) texts.push_back(list.List(i));
  return texts;
}

TEST(ListBox, SortedListInsertsIgnoringCaseAndKeepsTheCurrentRow) {
  ListBox list(/*sorted=*/true);
  list.AddItem("b.txt");
  list.SetListIndex(0);
  list.AddItem("A.txt");
  EXPECT_EQ(list.NewIndex(), 0u);
  list.AddItem("c.txt");
  list.AddItem("ä.txt");
  EXPECT_THAT(Texts(list), ::testing::ElementsAre("A.txt", "b.txt", "c.txt", "ä.txt"));
  EXPECT_EQ(list.ListIndex(), 1);  // still b.txt
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 0);
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), -1);  // the current row itself went
  list.AddItemAt("z", 0);           // no placing by hand in a sorted list
  EXPECT_EQ(list.ListCount(), 2u);
}

// Interleaved adds, reads, removes and look-ups give what a list that puts
// every row in place at once gives.
TEST(ListBox, DeferredSortingAgreesWithPlacingEachRowAtOnce) {
  std::mt19937 random(5);
  const std::vector<std::string> words = {"a", "A", "b", "B.txt", "b.TXT", "ä", "Ä", "z", "ab", "aB"};
  for (int round = 0; round < 200; ++round) {
    ListBox list(/*sorted=*/true);
    std::vector<std::string> expected;
    for (int step = 0; step < 30; ++step) {
      const std::string& word = words[random() % words.size()];
      switch (random() % 4) {
        case 0:
        case 1: {
          list.AddItem(word);
          const auto at = std::upper_bound(expected.begin(), expected.end(), word,
                                           [](const std::string& a, const std::string& b) {
                                             return text::CompareIgnoreCase(a, b) < 0;
                                           });
          expected.insert(at, word);
          break;
        }
        case 2: {
          const auto found = std::find_if(expected.begin(), expected.end(), [&](const std::string& e) {
            return text::CompareIgnoreCase(e, word) == 0;
          });
          const int want = found == expected.end() ? -1 : static_cast<int>(found - expected.begin());
          ASSERT_EQ(list.FindExact(word), want) << word;
          break;
        }
        default:
          if (!expected.empty()) {
            const std::size_t index = random() % expected.size();
            list.RemoveItem(index);
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(index));
          }
      }
    }
    ASSERT_EQ(Texts(list), expected);
  }
}

TEST(ListBox, CurrentRowFollowsItsRowThroughAMerge) {
  ListBox list(/*sorted=*/true);
  list.AddItem("m");
  list.SetListIndex(0);
  for (const char* text : {"a", "z", "b"}) list.AddItem(text);
  EXPECT_EQ(list.FindExact("Q"), -1);
  EXPECT_EQ(list.FindExact("Z"), 3);
  EXPECT_EQ(list.ListIndex(), 2);
  list.SetSelected(0, true);
  list.SetSelected(3, true);
  EXPECT_EQ(list.SelCount(), 2u);
}

TEST(ListBox, CheckBoxClickTogglesAndMakesTheRowCurrent) {
  ListBox list;
  int clicks = 0;
  list.onClick = [&] { ++clicks; };
  list.AddItem("x");
  list.AddItemAt("y", 0);
  list.ClickCheckBox(1);
  EXPECT_TRUE(list.Checked(1));
  EXPECT_EQ(list.List(1), "x");
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(clicks, 1);
  list.SetListIndex(7);  // out of range: ignored
  EXPECT_EQ(clicks, 1);
}

TEST(Controls, RulesRunOnlyWhenTheStateChanges) {
  CheckBox box;
  ComboBox combo;
  std::vector<std::string> events;
  box.onClick = [&] { events.push_back("box " + std::to_string(box.value())); };
  combo.onChange = [&] { events.push_back("change " + combo.text()); };
  combo.onClick = [&] { events.push_back("click"); };
  int redraws = 0;
  box.changed.Connect([&] { ++redraws; });

  box.SetValue(1);
  box.SetValue(1);
  box.SetValue(2);
  combo.AddItem("extension");
  combo.Pick(0);  // picking is a click, not a change
  combo.SetText("extension");
  combo.SetText("Extension");
  combo.Pick(3);
  EXPECT_THAT(events, ::testing::ElementsAre("box 1", "box 2", "click", "change Extension"));
  EXPECT_EQ(redraws, 2);
}

TEST(Controls, DisabledOrHiddenButtonsIgnoreClicks) {
  CommandButton button;
  int clicks = 0;
  button.onClick = [&] { ++clicks; };
  button.Click();
  button.SetEnabled(false);
  button.Click();
  button.SetEnabled(true);
  button.SetVisible(false);
  button.Click();
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace tessaly
