#include <gmock/gmock.h>

#include "wizard/remembered_boxes.h"
#include "wizard_test_support.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;

class StepMachineTest : public WizardTest {};

// Next's caption, then which of Next and Back are enabled (E) and shown (V), then Cancel's caption.
std::string Buttons(const fTessaly& form) {
  const auto flags = [](const CommandButton& b) {
    return std::string(b.enabled() ? "E" : "-") + (b.visible() ? "V" : "-");
  };
  return form.cmdNext.caption() + " " + flags(form.cmdNext) + flags(form.cmdBack) + " " +
         form.cmdCancel.caption();
}

TEST_F(StepMachineTest, ButtonsFollowTheStepTable) {
  fTessaly& wizard = Start();
  EXPECT_EQ(Buttons(wizard), "Next > EV-V Cancel");
  wizard.cmdNext.Click();
  EXPECT_EQ(Buttons(wizard), "Next > EVEV Cancel");
  wizard.cmdNext.Click();
  wizard.cmdNext.Click();  // empty list
  EXPECT_EQ(Buttons(wizard), "Finish > -VEV Cancel");
  wizard.cmdBack.Click();
  EXPECT_EQ(Buttons(wizard), "Next > EVEV Cancel");
  AddFiles({"C:\\a\\one.txt"});
  wizard.cmdNext.Click();
  EXPECT_EQ(Buttons(wizard), "Finish > EVEV Cancel");
  wizard.cmdNext.Click();
  EXPECT_EQ(wizard.CurrentStep, 4);
  EXPECT_EQ(Buttons(wizard), "Next > E-E- Finished");
  // Step 4 is final: every label is dead.
  wizard.lblStep[1].Click();
  EXPECT_EQ(wizard.CurrentStep, 4);
}

TEST_F(StepMachineTest, LabelsJumpBothWaysAndStep2FillsItsBoxesOnce) {
  fTessaly& wizard = Start();
  wizard.lblStep[2].Click();
  wizard.cboBatch[2].SetText("yyyy (date)");
  wizard.lblStep[1].Click();
  wizard.lblStep[4].Click();  // the run is reached by Next alone
  EXPECT_EQ(wizard.CurrentStep, 1);
  for (int i = 0; i < fTessaly::kStepCount; ++i) EXPECT_EQ(wizard.lblStep[i].bold(), i == 1) << i;
  wizard.lblStep[2].Click();
  EXPECT_EQ(wizard.cboBatch[0].text(), "Document Name");
  EXPECT_EQ(wizard.cboBatch[2].text(), "yyyy (date)");  // placements survive
}

TEST_F(StepMachineTest, AnOptionNotCarriedThroughStep3IsReloadedAway) {
  fTessaly& wizard = Start();
  wizard.lblStep[2].Click();
  wizard.chkCapitalize.SetValue(1);
  wizard.cmdBack.Click();
  wizard.cmdNext.Click();
  EXPECT_EQ(wizard.chkCapitalize.value(), 0);
  EXPECT_EQ(StoredState("chkCapitalize"), -1);  // nothing saved yet

  wizard.chkCapitalize.SetValue(1);
  wizard.cmdNext.Click();  // step 3 saves
  EXPECT_EQ(StoredState("chkCapitalize"), 1);
  wizard.cmdBack.Click();
  EXPECT_EQ(wizard.chkCapitalize.value(), 1);
  // Cancel saves nothing: what step 3 stored stays.
  wizard.chkLowercase.SetValue(1);
  wizard.cmdCancel.Click();
  EXPECT_TRUE(wizard.ended());
  EXPECT_EQ(StoredState("chkLowercase"), 0);
}

TEST_F(StepMachineTest, LabelJumpToStep3BeforeStep2FillsPlacementsAndSavesDefaults) {
  store.SaveProgramSetting("Settings", "chkUpperCase", SettingValue::FromInt32(1));
  fTessaly& wizard = Start();
  AddFiles({"C:\\Docs\\Report.TXT"});
  wizard.lblStep[3].Click();
  EXPECT_EQ(wizard.lstFilesC.List(0), "C:\\Docs\\Report.txt");
  // Nothing was loaded before, so the form's defaults overwrite the store.
  EXPECT_EQ(StoredState("chkUpperCase"), 0);
  for (const RememberedBox& box : kRememberedBoxes) {
    // One file greys "Use Real Files"; every other box stands at its default.
    const CheckState expected = box.name == "chkRealFiles" ? kGrayed : box.defaultState;
    EXPECT_EQ(StoredState(box.name), expected) << box.name;
  }
}

TEST_F(StepMachineTest, NavigationDuringAPreviewLoopIsIgnored) {
  fTessaly& wizard = Start();
  AddFiles({"C:\\a\\1.txt", "C:\\a\\2.txt"});
  wizard.lblStep[2].Click();
  int clicks = 0;
  ui.OnPendingEvents([&] {
    if (wizard.progress() != nullptr && clicks++ == 1) {
      wizard.cmdBack.Click();
      wizard.lblStep[0].Click();
    }
  });
  wizard.cmdNext.Click();
  EXPECT_EQ(wizard.CurrentStep, 3);
  EXPECT_EQ(wizard.lstFilesC.ListCount(), 2u);
  EXPECT_TRUE(wizard.cmdNext.enabled());
}

TEST_F(StepMachineTest, CancelDuringTheRunEndsBetweenFiles) {
  fTessaly& wizard = Start();
  AddFiles({"C:\\a\\1.TXT", "C:\\a\\2.TXT", "C:\\a\\3.TXT"});
  wizard.lblStep[2].Click();
  wizard.chkLowercase.SetValue(1);
  wizard.cmdNext.Click();
  ui.OnPendingEvents([&] {
    if (wizard.CurrentStep == 4 && files.renames().size() >= 1) wizard.cmdCancel.Click();
  });
  wizard.cmdNext.Click();
  EXPECT_TRUE(wizard.ended());
  EXPECT_FALSE(wizard.loaded());
  EXPECT_TRUE(files.GetAttributes("C:\\a\\3.TXT").has_value());  // never reached
}

}  // namespace
}  // namespace tessaly
