// The two stored lists: their text form, their dialogs, and their use by
// the conversion.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "conversion/name_converter.h"
#include "conversion/sample_paths.h"
#include "lists/replace_advanced.h"
#include "lists/stored_lists.h"
#include "lists/stored_rows.h"
#include "lists/unwanted_formatting.h"
#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_registry.h"
#include "platform/memory/scripted_ui.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;

TEST(StoredRows, EveryRowThatCanBeReadAndTheCanonicalFormBack) {
  EXPECT_THAT(ParseStoredRows(""), ::testing::IsEmpty());
  // Hand-damaged: a piece without a flag, a flag that is no number, an
  // empty piece, a flag other than 1, and a last row without its "|".
  EXPECT_THAT(ParseStoredRows("plain|x%%yes||y%%2|z%% 1 |lost%%1"),
              ElementsAre(StoredRow{"plain", false}, StoredRow{"x", false},
                          StoredRow{"y", false}, StoredRow{"z", true}));
  // The flag stands behind the last "%%", so a text may end in "%".
  EXPECT_THAT(ParseStoredRows("a%%1%%0|100%%%1|"),
              ElementsAre(StoredRow{"a%%1", false}, StoredRow{"100%", true}));
  const std::vector<StoredRow> rows = {
      {"  a >> b ", true}, {"", false}, {"Ünï", true}, {"50%% off >> %", false}};
  const std::string stored = FormatStoredRows(rows);
  EXPECT_EQ(stored, "  a >> b %%1|%%0|Ünï%%1|50%% off >> %%%0|");
  EXPECT_EQ(ParseStoredRows(stored), rows);
  EXPECT_TRUE(HoldsSeparator("a|b"));
  EXPECT_FALSE(HoldsSeparator("50%% off"));
}

class ListsTest : public ::testing::Test {
 protected:
  std::string Stored(std::string_view name) {
    return store_.GetProgramSetting("Settings", name, SettingValue::FromText("<none>")).AsText();
  }
  void Store(std::string_view name, std::string text) {
    store_.SaveProgramSetting("Settings", name, SettingValue::FromText(std::move(text)));
  }
  // Loads a fresh form, as showing the dialog does.
  template <typename Form>
  Form& Open(std::optional<Form>& form) {
    form.emplace(store_, ui_);
    form->Load();
    return *form;
  }
  fReplaceAdvanced& OpenReplace() { return Open(replace_); }
  fUnwantedFormatting& OpenFormatting() { return Open(formatting_); }
  void Add(fReplaceAdvanced& form, std::string find, std::string with) {
    form.cboBatch[0].SetText(std::move(find));
    form.cboBatch[1].SetText(std::move(with));
    form.cmdAdd.Click();
  }

  MemoryRegistry registry_;
  SettingsStore store_{registry_};
  ScriptedUi ui_;
  std::optional<fReplaceAdvanced> replace_;
  std::optional<fUnwantedFormatting> formatting_;
};

TEST_F(ListsTest, ReplaceRowsGoOnTopCheckedAndAreStoredAtUnload) {
  fReplaceAdvanced& form = OpenReplace();
  EXPECT_EQ(form.cboBatch[1].items().size(), 20u);
  Add(form, "a", "1");
  Add(form, "b", "2");
  Add(form, "", "");
  Add(form, "a|b", "x");  // a separator would split the row: refused
  Add(form, "a", "1|2");
  ASSERT_EQ(ui_.messages().size(), 2u);
  EXPECT_EQ(ui_.messages()[0].text, kSeparatorRefusal);
  EXPECT_EQ(Stored("ReplaceList"), "<none>");  // nothing is stored before the unload
  form.Unload();
  EXPECT_EQ(Stored("ReplaceList"), " >> %%1|b >> 2%%1|a >> 1%%1|");
  EXPECT_THAT(OpenReplace().Rows(), ElementsAre(ReplaceEntry{"", "", true}, ReplaceEntry{"b", "2", true},
                                                ReplaceEntry{"a", "1", true}));
}

TEST_F(ListsTest, ReplaceCheckBoxClicksRemovalAndClearReachTheRecord) {
  Store("ReplaceList", "a >> 1%%1|b >> 2%%0|c >> 3%%1|");
  fReplaceAdvanced& form = OpenReplace();
  form.lstReplace.ClickCheckBox(0);  // clears a, and makes it the current row
  form.lstReplace.SetListIndex(1);   // the unchecked b is highlighted
  form.cmdRemoveSelected.Click();
  EXPECT_EQ(form.lstReplace.ListIndex(), -1);
  form.cmdRemoveSelected.Click();  // no current row: nothing happens
  form.Unload();
  EXPECT_EQ(Stored("ReplaceList"), "a >> 1%%0|c >> 3%%1|");
  OpenReplace().cmdClear.Click();
  replace_->Unload();
  EXPECT_EQ(OpenReplace().lstReplace.ListCount(), 0u);
}

TEST_F(ListsTest, DamagedReplaceTextLoadsWhatCanBeReadAndIsWrittenBackCanonical) {
  Store("ReplaceList", "A >> B%%1|C|D >> E%%x|x >> y >> z%%1|  pad  >>  q %%1|F >> G%%1");
  fReplaceAdvanced& form = OpenReplace();
  EXPECT_THAT(form.Rows(), ElementsAre(ReplaceEntry{"A", "B", true}, ReplaceEntry{"C", "", false},
                                       ReplaceEntry{"D", "E", false}, ReplaceEntry{"x", "y", true},
                                       ReplaceEntry{"  pad ", " q ", true}));
  form.Unload();
  EXPECT_EQ(Stored("ReplaceList"), "A >> B%%1|C >> %%0|D >> E%%0|x >> y%%1|  pad  >>  q %%1|");
}

TEST_F(ListsTest, FormattingDefaultsComeBackWhenTheListIsEmptied) {
  fUnwantedFormatting& form = OpenFormatting();
  std::vector<FormattingEntry> defaults;
  for (const char* text : {"Copy Of", "Copy (##) Of", "Shortcut To", "## -", "-#", "(Radio Edit)", "- -"}) {
    defaults.push_back({text, false});
  }
  EXPECT_EQ(form.Rows(), defaults);
  while (form.lstRemove.ListCount() > 0) {
    form.lstRemove.SetListIndex(0);
    form.cmdRemove.Click();
  }
  form.Unload();
  EXPECT_EQ(OpenFormatting().Rows(), defaults);
}

TEST_F(ListsTest, FormattingAddRemoveAndUpdateEditTheRows) {
  Store("FormattingList", "one%%1|two%%0|three%%1|");
  fUnwantedFormatting& form = OpenFormatting();
  form.txtEdit.SetText("nothing current");
  form.cmdUpdate.Click();  // no current row: nothing changes
  form.lstRemove.SetListIndex(0);
  EXPECT_EQ(form.txtEdit.text(), "one");
  form.cmdRemove.Click();  // the first row becomes current and shows its text
  EXPECT_EQ(form.txtEdit.text(), "two");
  form.txtEdit.SetText("zwei");
  form.cmdUpdate.Click();
  form.txtEdit.SetText("a|b");
  form.cmdUpdate.Click();  // refused
  form.txtAdd.SetText("  blanks  ");
  form.cmdAdd.Click();
  form.txtAdd.SetText("50|%");
  form.cmdAdd.Click();  // refused
  EXPECT_EQ(ui_.messages().size(), 2u);
  EXPECT_EQ(ui_.messages()[0].title, "Define 'Unwanted Formatting' Settings");
  form.txtEdit.SetText("Ünï");
  form.txtEdit.Focus();  // selects the whole text, counted in characters
  EXPECT_EQ(form.txtEdit.selLength(), 3u);
  form.Unload();
  EXPECT_EQ(Stored("FormattingList"), "  blanks  %%1|zwei%%0|three%%1|");
}

class StoredListsTest : public ListsTest {
 protected:
  std::string Convert(std::string_view path) { return converter_.ConvertName(options_, path); }
  StoredLists lists_{store_, ui_};
  FixedClock clock_{CivilDate{2026, 11, 18}};
  FixedLocale locale_;
  MemoryFileSystem fs_;
  NameConverter converter_{{clock_, locale_, fs_, &lists_}};
  ConversionOptions options_;
};

TEST_F(StoredListsTest, ConversionReadsTheStoredRowsAnewForEveryName) {
  options_.cboBatch[6] = "(Advanced)";
  Store("ReplaceList", "MYFILE >> Yours%%1|Oddy >> Even%%0|");
  EXPECT_EQ(Convert(kBuiltInSamples[1]), "c:\\graphics\\common\\Copy of Yours -    SPACE - 04 - Oddy.jpg");
  OpenReplace().lstReplace.ClickCheckBox(1);  // a person ticks the second row
  replace_->cmdAccept.Click();
  EXPECT_EQ(Convert(kBuiltInSamples[1]), "c:\\graphics\\common\\Copy of Yours -    SPACE - 04 - Even.jpg");
}

TEST_F(StoredListsTest, FirstConversionWithFormattingStoresTheDefaultOrTheCanonicalText) {
  options_.chkFormatting = kChecked;
  EXPECT_EQ(Convert(kBuiltInSamples[0]), "c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg");
  EXPECT_EQ(Stored("FormattingList"), kDefaultFormattingList);
  Store("FormattingList", "Copy of %%1|junk|");
  EXPECT_EQ(Convert(kBuiltInSamples[1]), "c:\\graphics\\common\\MYFILE -    SPACE - 04 - Oddy.jpg");
  EXPECT_EQ(Stored("FormattingList"), "Copy of %%1|junk%%0|");
}

}  // namespace
}  // namespace tessaly
