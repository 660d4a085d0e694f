#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <random>

#include "controls/buttons.h"
#include "controls/combo_box.h"
#include "controls/list_box.h"
#include "controls/readable_colour.h"
#include "controls/signal.h"
#include "text/text_ops.h"

namespace tessaly {
namespace {

std::vector<std::string> Texts(const ListBox& list) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < list.ListCount(); ++i) texts.emplace_back(list.List(i));
  return texts;
}

bool Before(const std::string& a, const std::string& b) {
  return text::CompareIgnoreCase(a, b) < 0;
}

// Adds, look-ups, reads, selections, removals from the bottom up and moves
// of the current row, interleaved at random, give what doing each at once
// gives. The words mix letter case, accented and non-Latin letters and
// bytes that are not UTF-8, so the list's own ordering has to agree with
// CompareIgnoreCase throughout.
TEST(ListBox, DeferredSortingAndRemovingAgreeWithDoingEachAtOnce) {
  const std::vector<std::string> words = {
      "a",    "A",     "b",     "B.txt", "b.TXT", "ä",    "Ä",        "z",    "ab",    "aB",
      "\xff", "a\xe9", "A\xe9", "\xc3",  "ß",     "ẞ",    "фото",     "ФОТО", "C:\\x", "c:\\X\\y",
      "",     "a b",   "a  b",  "ab.",   "Ab.",   "\x7f", "\xe2\x82", "ω",    "Ω",     "z\xff",
      // Long and alike, differing past their first eight bytes, where "_"
      // and "[" sort between the capitals and the small letters.
      "Holiday Photos/IMG_1.JPG", "holiday photos/img_1.jpg", "Holiday Photos/IMG[1.JPG",
      "holiday photos/img_10.jpg", "HOLIDAY PHOTOS/ÄMG_1.JPG", "holiday photos/imgz1.jpg"};
  std::mt19937 random(5);
  const auto pick = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  for (int round = 0; round < 300; ++round) {
    ListBox list(/*sorted=*/true);
    std::vector<std::string> texts;  // the reference
    std::vector<bool> selected;
    int current = -1;
    for (int step = 0; step < 60; ++step) {
      const std::string& word = words[pick(words.size())];
      const std::size_t count = texts.size();
      const std::size_t index = count > 0 ? pick(count) : 0;
      switch (count > 0 ? pick(8) : 0) {
        case 0: case 1: case 2: {
          list.AddItem(word);
          const auto at = std::upper_bound(texts.begin(), texts.end(), word, Before);
          const auto place = at - texts.begin();
          texts.insert(at, word);
          selected.insert(selected.begin() + place, false);
          if (current >= place) ++current;
          break;
        }
        case 3: {
          const auto found = std::find_if(texts.begin(), texts.end(), [&](const std::string& t) {
            return text::CompareIgnoreCase(t, word) == 0;
          });
          ASSERT_EQ(list.FindExact(word), found == texts.end() ? -1 : found - texts.begin());
          break;
        }
        case 4:
          ASSERT_EQ(list.List(index), texts[index]);
          ASSERT_EQ(list.Selected(index), selected[index]);
          break;
        case 5:
          selected[index] = pick(2) == 0;
          list.SetSelected(index, selected[index]);
          break;
        case 6:
          for (std::size_t i = count; i-- > 0;) {
            if (pick(3) != 0) continue;
            list.RemoveItem(i);
            texts.erase(texts.begin() + static_cast<std::ptrdiff_t>(i));
            selected.erase(selected.begin() + static_cast<std::ptrdiff_t>(i));
            if (current == static_cast<int>(i)) current = -1;
            if (current > static_cast<int>(i)) --current;
          }
          break;
        default:
          if (pick(2) == 0) {
            current = static_cast<int>(index);
            list.SetListIndex(current);
          }
          ASSERT_EQ(list.ListIndex(), current);
      }
      ASSERT_EQ(list.ListCount(), texts.size());
      ASSERT_EQ(list.SelCount(),
                static_cast<std::size_t>(std::count(selected.begin(), selected.end(), true)));
    }
    ASSERT_EQ(Texts(list), texts);
    ASSERT_EQ(list.ListIndex(), current);
  }
}

// Texts equal ignoring case stand in the order they came, old before new,
// however many of them wait to be merged at once.
TEST(ListBox, RowsEqualIgnoringCaseKeepTheirArrivalOrder) {
  std::vector<std::string> spellings;
  for (int bits = 0; bits < 64; ++bits) {
    std::string word = "abcdef";
    for (int i = 0; i < 6; ++i)
      word[i] = ((bits >> i) & 1) ? static_cast<char>(word[i] - 32) : word[i];
    spellings.push_back(word);
  }
  std::shuffle(spellings.begin(), spellings.end(), std::mt19937(3));
  ListBox list(/*sorted=*/true);
  for (std::size_t i = 0; i < 10; ++i) list.AddItem(spellings[i]);
  EXPECT_EQ(list.List(0), spellings[0]);  // merges the first ten
  for (std::size_t i = 10; i < spellings.size(); ++i) list.AddItem(spellings[i]);
  EXPECT_EQ(Texts(list), spellings);
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
  // A check box click makes its row current; rows are not placed by hand.
  list.ClickCheckBox(2);
  list.AddItemAt("a", 0);
  EXPECT_TRUE(list.Checked(2));
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_THAT(Texts(list), ::testing::ElementsAre("d", "E", "f"));
}

TEST(Controls, RulesRunOnlyWhenTheStateChangesOrTheButtonIsThere) {
  CheckBox box;
  ComboBox combo;
  std::vector<std::string> events;
  box.onClick = [&] { events.push_back("box " + std::to_string(box.value())); };
  combo.onChange = [&] { events.push_back("change " + combo.text()); };
  combo.onClick = [&] { events.push_back("click"); };
  int redraws = 0;
  const Connection redrawing = box.changed.Connect([&] { ++redraws; });

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
  // A disabled or hidden button ignores clicks.
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

// A view that goes before its model takes its callback along, also in the
// middle of an emit; a handle kept past its signal does nothing.
// A colour that is hard to read on its background is lightened or darkened
// just enough, keeping its hue; one that reads well stays as it is.
TEST(ReadableOn, ReachesTheContrastKeepingTheHue) {
  const Rgb blue{0, 0, 255}, red{255, 0, 0}, black{0, 0, 0}, white{255, 255, 255};
  const struct { Rgb colour, background; bool same; } cases[] = {
      {blue, white, true},  {blue, black, false}, {blue, {42, 42, 42}, false},
      {red, white, false},  {red, black, true},   {black, black, false},
  };
  for (const auto& c : cases) {
    const Rgb readable = ReadableOn(c.colour, c.background);
    EXPECT_GE(ContrastRatio(readable, c.background), kReadableContrast);
    EXPECT_LT(ContrastRatio(readable, c.background), kReadableContrast + (c.same ? 20 : 0.2));
    EXPECT_EQ(readable == c.colour, c.same);
    if (c.colour == blue) {
      EXPECT_GT(readable.blue, readable.red + 60);
    }
    if (c.colour == red) {
      EXPECT_GT(readable.red, readable.blue + 60);
    }
  }
  EXPECT_NEAR(ContrastRatio(black, white), 21, 1e-9);
}

TEST(Signal, ConnectionsEndWithTheirHandles) {
  std::string ran;
  auto signal = std::make_unique<Signal>();
  Connection first = signal->Connect([&] { ran += "1"; });
  Connection kept = signal->Connect([&] { ran += "k"; });
  std::optional<Connection> second;
  // The first callback ends the second before its turn and its own handle
  // while it runs.
  Connection ending = signal->Connect([&] {
    ran += "e";
    second.reset();
    first.Disconnect();
  });
  second = signal->Connect([&] { ran += "2"; });
  { const Connection dropped = signal->Connect([&] { ran += "x"; }); }
  signal->Emit();
  signal->Emit();
  EXPECT_EQ(ran, "1keke");

  Connection moved = std::move(kept);
  ran.clear();
  signal->Emit();
  ending.Disconnect();
  signal->Emit();
  EXPECT_EQ(ran, "kek");
  signal.reset();
  moved.Disconnect();
}

}  // namespace
}  // namespace tessaly
