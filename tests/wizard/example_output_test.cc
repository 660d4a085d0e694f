#include <gmock/gmock.h>

#include "wizard_test_support.h"

namespace tessaly {
namespace {

class ExampleOutputTest : public WizardTest {
 protected:
  fTessaly& AtStep2(std::string commandLine = "") {
    fTessaly& wizard = Start(std::move(commandLine));
    wizard.lblStep[2].Click();
    return wizard;
  }
};

TEST_F(ExampleOutputTest, TypingNoneEmptiesTheBoxAtTheClosingBracket) {
  fTessaly& wizard = AtStep2();
  std::string typed;
  for (char c : std::string("(none)")) {
    typed += c;
    wizard.cboBatch[1].SetText(typed);
  }
  EXPECT_EQ(wizard.cboBatch[1].text(), "");
  EXPECT_THAT(wizard.txtExample.text(), ::testing::Not(::testing::HasSubstr(".jpeg")));
}

TEST_F(ExampleOutputTest, AdvancedInWithFillsReplaceAndOpensTheDialog) {
  fTessaly& wizard = AtStep2();
  int refreshesWhileOpen = 0;
  ui.OnModal("fReplaceAdvanced", [&](Form&) {
    EXPECT_EQ(wizard.cboBatch[6].text(), "(Advanced)");
    EXPECT_TRUE(wizard.cmdReplaceAdv.visible());
    refreshesWhileOpen = 1;
  });
  wizard.cboBatch[7].Pick(0);
  EXPECT_EQ(refreshesWhileOpen, 1);
  wizard.cboBatch[6].SetText("x");
  EXPECT_FALSE(wizard.cmdReplaceAdv.visible());
  EXPECT_FALSE(wizard.cmdReplaceAdv2.visible());
  EXPECT_EQ(wizard.cboBatch[7].text(), "(Advanced)");  // the other box is not touched
}

// Each box's rule acts on the state after the click.
TEST_F(ExampleOutputTest, CheckBoxRulesActOnTheStateAfterTheClick) {
  using Box = CheckBox fTessaly::*;
  const struct {
    Box clicked;
    CheckState state;
    Box other;
    CheckState otherBefore, otherAfter;
  } rules[] = {
      {&fTessaly::chkUpperCase, 1, &fTessaly::chkLowercase, 1, 0},
      {&fTessaly::chkLowercase, 1, &fTessaly::chkUpperCase, 1, 0},
      {&fTessaly::chkLongExtension, 1, &fTessaly::chkShortExtension, 1, 0},
      {&fTessaly::chkShortExtension, 1, &fTessaly::chkLongExtension, 1, 0},
      {&fTessaly::chkRemoveu, 1, &fTessaly::chkAllowSpaces, 0, 1},  // underscores need spaces
      {&fTessaly::chkAllowSpaces, 0, &fTessaly::chkRemoveu, 1, 2},  // no spaces greys them
      {&fTessaly::chkAllowSpaces, 1, &fTessaly::chkRemoveu, 2, 1},
      {&fTessaly::chkAllowSpaces, 0, &fTessaly::chkRemoveu, 0, 0},
      {&fTessaly::chkCapitalize, 1, &fTessaly::chkUpperCase, 1, 1},
  };
  fTessaly& wizard = AtStep2();
  for (const auto& rule : rules) {
    (wizard.*rule.clicked).SetValue(rule.state == kChecked ? kUnchecked : kChecked);
    (wizard.*rule.other).SetValue(rule.otherBefore);
    (wizard.*rule.clicked).SetValue(rule.state);
    EXPECT_EQ((wizard.*rule.other).value(), rule.otherAfter) << (wizard.*rule.clicked).caption();
  }
}

TEST_F(ExampleOutputTest, RealFilesFollowTheListSize) {
  fTessaly& wizard = AtStep2();
  AddFiles({"C:\\f\\a.txt", "C:\\f\\b.txt"});
  EXPECT_EQ(wizard.chkRealFiles.value(), 2);
  EXPECT_EQ(wizard.SamplePath1, "c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg");
  AddFiles({"C:\\f\\c.txt"});  // three: greyed stays greyed
  EXPECT_EQ(wizard.chkRealFiles.value(), 2);
  // Ticking the greyed box runs its rule once more inside the first run,
  // whose own draws then come last. Fractions 0.5 → 1.5 → 2 (half to
  // even), 0.25 → 0.75 → 1, 0 → 0.
  for (double ignored : {0.9, 0.9, 0.9}) random.QueueFraction(ignored);
  random.QueueFraction(0.5);
  random.QueueFraction(0.25);
  random.QueueFraction(0.0);
  AddFiles({"C:\\f\\d.txt"});
  EXPECT_EQ(wizard.chkRealFiles.value(), 1);
  EXPECT_EQ(wizard.SamplePath1, "C:\\f\\c.txt");
  EXPECT_EQ(wizard.SamplePath2, "C:\\f\\b.txt");
  EXPECT_EQ(wizard.SamplePath3, "C:\\f\\a.txt");
  EXPECT_EQ(random.seeds().back(), 12);
  EXPECT_EQ(wizard.txtExample.text(), "c.txt\r\nb.txt\r\na.txt");
  // Three files again keep the ticked box ticked.
  wizard.lstFiles.SetSelected(3, true);
  wizard.cmdRemove.Click();
  EXPECT_EQ(wizard.chkRealFiles.value(), 1);
  wizard.chkRealFiles.SetValue(0);
  EXPECT_EQ(wizard.SamplePath1, "c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg");
}

}  // namespace
}  // namespace tessaly
