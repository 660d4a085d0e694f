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

// What a sorted list must show: each row put in place at once, after the
// rows equal to it ignoring case; removals at once too.
struct ReferenceList {
  struct Row {
    std::string text;
    bool selected = false;
  };
  std::vector<Row> rows;
  int current = -1;

  void Add(const std::string& text) {
    const auto at = std::upper_bound(
        rows.begin(), rows.end(), text,
        [](const std::string& t, const Row& r) { return text::CompareIgnoreCase(t, r.text) < 0; });
    const int index = static_cast<int>(at - rows.begin());
    rows.insert(at, Row{text});
    if (current >= index) ++current;
  }
  void Remove(std::size_t index) {
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(index));
    if (current == static_cast<int>(index)) {
      current = -1;
    } else if (current > static_cast<int>(index)) {
      --current;
    }
  }
  int Find(const std::string& text) const {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (text::CompareIgnoreCase(rows[i].text, text) == 0) return static_cast<int>(i);
    }
    return -1;
  }
  std::size_t SelCount() const {
    return static_cast<std::size_t>(
        std::count_if(rows.begin(), rows.end(), [](const Row& r) { return r.selected; }));
  }
};

// Interleaved adds, look-ups, reads, selections, removals and moves of the
// current row give exactly what the reference gives. The words mix letter
// case, accented and non-Latin letters and bytes that are not UTF-8, so
// the list's own ordering has to agree with CompareIgnoreCase throughout.
TEST(ListBox, DeferredSortingAndRemovingAgreeWithDoingEachAtOnce) {
  std::mt19937 random(5);
  const std::vector<std::string> words = {
      "a",    "A",     "b",     "B.txt", "b.TXT", "ä",    "Ä",        "z",    "ab",    "aB",
      "\xff", "a\xe9", "A\xe9", "\xc3",  "ß",     "ẞ",    "фото",     "ФОТО", "C:\\x", "c:\\X\\y",
      "",     "a b",   "a  b",  "ab.",   "Ab.",   "\x7f", "\xe2\x82", "ω",    "Ω",     "z\xff"};
  const auto pick = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  for (int round = 0; round < 300; ++round) {
    ListBox list(/*sorted=*/true);
    ReferenceList expected;
    for (int step = 0; step < 60; ++step) {
      const std::string& word = words[pick(words.size())];
      const std::size_t count = expected.rows.size();
      switch (pick(8)) {
        case 0:
        case 1:
        case 2:
          list.AddItem(word);
          expected.Add(word);
          break;
        case 3:
          ASSERT_EQ(list.FindExact(word), expected.Find(word)) << word;
          break;
        case 4:
          if (count > 0) {
            const std::size_t index = pick(count);
            ASSERT_EQ(list.List(index), expected.rows[index].text);
            ASSERT_EQ(list.Selected(index), expected.rows[index].selected);
          }
          break;
        case 5:
          if (count > 0) {
            const std::size_t index = pick(count);
            const bool selected = pick(2) == 0;
            list.SetSelected(index, selected);
            expected.rows[index].selected = selected;
          }
          break;
        case 6:
          if (count > 0) {
            // Removals from the bottom up, as "Remove Selected" makes them.
            for (std::size_t index = count; index-- > 0;) {
              if (pick(3) != 0) continue;
              list.RemoveItem(index);
              expected.Remove(index);
            }
          }
          break;
        default:
          if (count > 0 && pick(2) == 0) {
            const int index = static_cast<int>(pick(count));
            list.SetListIndex(index);
            expected.current = index;
          } else {
            ASSERT_EQ(list.ListIndex(), expected.current);
          }
      }
      ASSERT_EQ(list.ListCount(), expected.rows.size());
      ASSERT_EQ(list.SelCount(), expected.SelCount());
    }
    std::vector<std::string> texts;
    for (const auto& row : expected.rows) texts.push_back(row.text);
    ASSERT_EQ(Texts(list), texts);
    ASSERT_EQ(list.ListIndex(), expected.current);
  }
}

// Texts equal ignoring case stand in the order they came, old before new,
// however many of them wait to be merged at once.
TEST(ListBox, RowsEqualIgnoringCaseKeepTheirArrivalOrder) {
  std::vector<std::string> spellings;
  for (int bits = 0; bits < 64; ++bits) {
    std::string word = "abcdef";
    for (int i = 0; i < 6; ++i) {
      if ((bits >> i) & 1) word[i] = static_cast<char>(word[i] - 32);
    }
    spellings.push_back(word);
  }
  std::shuffle(spellings.begin(), spellings.end(), std::mt19937(3));
  ListBox list(/*sorted=*/true);
  list.AddItem("zzz");
  for (std::size_t i = 0; i < 10; ++i) list.AddItem(spellings[i]);
  EXPECT_EQ(list.List(0), spellings[0]);  // merges the first ten
  for (std::size_t i = 10; i < spellings.size(); ++i) list.AddItem(spellings[i]);
  list.AddItem("Aaa");
  std::vector<std::string> expected = {"Aaa"};
  expected.insert(expected.end(), spellings.begin(), spellings.end());
  expected.push_back("zzz");
  EXPECT_EQ(Texts(list), expected);
  EXPECT_EQ(list.FindExact("ABCDEF"), 1);
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
  list.RemoveItem(3);
  list.RemoveItem(0);
  EXPECT_EQ(list.SelCount(), 0u);
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(list.List(1), "m");
}

// Changing a text keeps a sorted list sorted, so its look-ups stay right.
TEST(ListBox, ChangedTextMovesToItsSortedPlace) {
  ListBox list(/*sorted=*/true);
  for (const char* text : {"b", "d", "f"}) list.AddItem(text);
  list.SetListIndex(0);
  list.SetList(0, "E");
  EXPECT_THAT(Texts(list), ::testing::ElementsAre("d", "E", "f"));
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(list.FindExact("b"), -1);
  EXPECT_EQ(list.FindExact("e"), 1);
  ListBox plain;
  for (const char* text : {"b", "d"}) plain.AddItem(text);
  plain.SetList(0, "z");
  EXPECT_THAT(Texts(plain), ::testing::ElementsAre("z", "d"));
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
