#include <gmock/gmock.h>

#include "settings/command_line.h"
#include "wizard_test_support.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;
using ::testing::Optional;

TEST(CommandLineText, FilePartEndsAtTheFirstSlashAndLosesItsQuotes) {
  EXPECT_THAT(command_line::FilePaths(R"x(  "C:\a b.txt";C:\c.txt /step:4)x"),
              Optional(ElementsAre("C:\\a b.txt", "C:\\c.txt")));
  EXPECT_THAT(command_line::FilePaths("C:/x/y.txt"), Optional(ElementsAre("C:")));
  EXPECT_EQ(command_line::FilePaths(" /exit"), std::nullopt);
  EXPECT_THAT(command_line::FilePaths("a;;b "), Optional(ElementsAre("a", "", "b")));
  // Quotes alone make a file part that is not empty, though it holds no path.
  EXPECT_THAT(command_line::FilePaths(R"x("" /exit)x"), Optional(ElementsAre()));
}

TEST(CommandLineText, PlacementValuesAndStepDigits) {
  const struct {
    const char* line;
    int number;
    std::optional<std::string> value;
  } cases[] = {
      {R"x(/placement2:"(none)" /step:4)x", 2, "(none)"},
      {R"x(/placement1:Name)x", 1, std::nullopt},  // no opening quote
      {R"x(/placement2:"")x", 2, ""},
      {R"x(/placement3:"to the end /exit)x", 3, "to the end /exit"},
      {R"x(/placement3:"a" /placement3:"b")x", 3, "a"},  // the first one counts
  };
  for (const auto& c : cases) EXPECT_EQ(command_line::PlacementValue(c.line, c.number), c.value) << c.line;
  EXPECT_EQ(command_line::StepCount("/step:3"), 3);
  EXPECT_EQ(command_line::StepCount("/step:12"), 1);
  EXPECT_EQ(command_line::StepCount("/step:"), 0);
  EXPECT_EQ(command_line::StepCount("/step:2 /step:4"), 2);
}

class CommandLineTest : public WizardTest {};

TEST_F(CommandLineTest, BarePathsOpenOnFileSelection) {
  MakeFiles({"C:\\d\\a.txt", "C:\\d\\b.txt"});
  files.AddDirectory("C:\\d\\sub");
  fTessaly& wizard = Start(R"x(C:\d\a.txt;C:\D\A.TXT;"C:\d\b.txt";C:\d\sub;C:\d\missing.txt)x");
  EXPECT_EQ(wizard.CurrentStep, 1);
  EXPECT_EQ(wizard.lstFiles.ListCount(), 2u);
  EXPECT_EQ(wizard.lStat.caption(), "2 files.");
  EXPECT_EQ(Start(R"x("")x").CurrentStep, 1);  // quotes alone
}

TEST_F(CommandLineTest, PathsBeyondTheListsLimitAreCountedNotLost) {
  std::string line;
  for (int i = 0; i < 32769; ++i) {
    const std::string path = "C:\\many\\" + std::to_string(i) + ".txt";
    files.AddFile(path);
    line += path + ";";
  }
  world.program.commandLine = line;
  world.form = std::make_unique<fTessaly>(WizardServices{files, store, ui, clock, locale, random,
                                                         world.program, world.shell, world.network,
                                                         world.shortPaths});
  int warnings = 0;
  world.form->listFull.Connect([&] { ++warnings; });
  StartWizard(*world.form, ui);
  fTessaly& wizard = *world.form;
  EXPECT_EQ(warnings, 1);
  EXPECT_EQ(wizard.lstFiles.ListCount(), 32767u);
  EXPECT_EQ(wizard.refusedForLimit(), 2);
  EXPECT_EQ(wizard.lStat.caption(), "32767 files.");
}

TEST_F(CommandLineTest, ASlashAnywhereKeepsTheWizardOnWelcome) {
  MakeFiles({"C:\\d\\a.txt"});
  fTessaly& wizard = Start(R"x(C:\d\a.txt /Exit)x");
  EXPECT_EQ(wizard.CurrentStep, 0);
  EXPECT_FALSE(wizard.ended());  // "/Exit" is not "/exit"
  EXPECT_EQ(wizard.lstFiles.ListCount(), 1u);
}

TEST_F(CommandLineTest, OptionSwitchesRunInTableOrderWithTheirRules) {
  fTessaly& wizard = Start(
      "/settings:UpperCase /settings:LowerCase /settings:LongExtension /settings:ShortExtension "
      "/settings:DontAllowSpaces /settings:RemoveUnderscores");
  EXPECT_EQ(wizard.chkUpperCase.value(), 1);
  EXPECT_EQ(wizard.chkLowercase.value(), 0);
  EXPECT_EQ(wizard.chkLongExtension.value(), 1);
  EXPECT_EQ(wizard.chkShortExtension.value(), 0);
  EXPECT_EQ(wizard.chkRemoveu.value(), 2);
  EXPECT_EQ(wizard.chkAllowSpaces.value(), 0);
}

// A settings switch, even an unknown one, keeps the stored options from
// loading; placements survive the filling of step 2.
TEST_F(CommandLineTest, SwitchesWinOverTheStoredOptionsAndTheFilling) {
  store.SaveProgramSetting("Settings", "chkFixSpacing", SettingValue::FromInt32(1));
  fTessaly& wizard =
      Start(R"x(/settings:Nonsense /placement3:"yyyy (date)" /placement1:Bare /placement2:"" /step:2)x");
  EXPECT_EQ(wizard.CurrentStep, 2);
  EXPECT_EQ(wizard.chkFixSpacing.value(), 0);
  EXPECT_EQ(wizard.cboBatch[0].text(), "Combo1");  // no quote: no value, but not filled either
  EXPECT_EQ(wizard.cboBatch[1].text(), "");
  EXPECT_EQ(wizard.cboBatch[2].text(), "yyyy (date)");
  EXPECT_EQ(wizard.cboBatch[3].text(), "");
}

TEST_F(CommandLineTest, ShowAndHideDecideWhetherTheWizardAppears) {
  const struct {
    const char* line;
    std::vector<std::string> shown;
    bool ended;
  } cases[] = {
      {"/hidebar", {}, false},          {"/Hide", {"fTessaly"}, false},
      {"/exit", {}, true},              {"/show /hide", {"fTessaly"}, false},
      {"/showme /exit", {"fTessaly"}, true},
  };
  for (const auto& c : cases) {
    ui = ScriptedUi();
    fTessaly& wizard = Start(c.line);
    EXPECT_EQ(ui.shownForms(), c.shown) << c.line;
    EXPECT_EQ(wizard.ended(), c.ended) << c.line;
  }
}

}  // namespace
}  // namespace tessaly
