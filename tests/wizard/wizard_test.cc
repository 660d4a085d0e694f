// The wizard driven as a person or a command line would: its steps, the
// command line, the example of step 2, the rename run and its log.

#include <gmock/gmock.h>

#include <sstream>

#include "journal/journal_reader.h"
#include "machine_wizard.h"
#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "settings/command_line.h"
#include "system/shared_keys.h"
#include "text/text_ops.h"
#include "text/utf8.h"
#include "wizard/change_log.h"
#include "wizard/progress_form.h"
#include "wizard/remembered_boxes.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Optional;
using LetterCase = MemoryFileSystem::LetterCase;

// The wizard over a memory file system that ignores letter case.
class WizardTest : public ::testing::Test {
 protected:
  fTessaly& Start(std::string commandLine = "") { return world.Start(std::move(commandLine)); }

  // `List` drops paths on the list; `MakeFiles` makes them files on the disk;
  // `AddFiles` does both.
  void MakeFiles(std::initializer_list<std::string_view> paths) {
    for (std::string_view path : paths) files.AddFile(path);
  }
  void List(std::initializer_list<std::string_view> paths) {
    DropData drop;
    for (std::string_view path : paths) drop.files.emplace_back(path);
    world.form->AddDroppedFiles(drop);
  }
  void AddFiles(std::initializer_list<std::string_view> paths) {
    MakeFiles(paths);
    List(paths);
  }
  // Starts the wizard, lists `paths` and enters step 2.
  fTessaly& AtStep2(std::initializer_list<std::string_view> paths = {}) {
    fTessaly& wizard = Start();
    if (paths.size() > 0) AddFiles(paths);
    wizard.lblStep[2].Click();
    return wizard;
  }

  std::int32_t StoredState(std::string_view name) {
    return store.GetProgramSetting("Settings", name, SettingValue::FromInt32(-1)).AsWholeNumber();
  }

  // The file lines of the log, without their times.
  std::vector<std::string> FileLines() const {
    std::vector<std::string> lines;
    for (std::string_view line : text::Split(world.form->tLog.text(), "\r\n")) {
      if (line.starts_with("14:02:09 - ")) lines.emplace_back(line.substr(11));
    }
    return lines;
  }
  // Every file on the disk as "path=contents".
  std::vector<std::string> Disk() const { return files.FilesAndContents(); }

  MemoryFileSystem files;
  MemoryWorld world{files};
  SettingsStore& store = world.store;
  ScriptedUi& ui = world.ui;
};

// ---- The steps ----

// Next's caption, which of Next and Back are enabled (E) and shown (V), and Cancel's caption.
std::string Buttons(const fTessaly& form) {
  const auto flags = [](const CommandButton& b) {
    return std::string(b.enabled() ? "E" : "-") + (b.visible() ? "V" : "-");
  };
  return form.cmdNext.caption() + " " + flags(form.cmdNext) + flags(form.cmdBack) + " " +
         form.cmdCancel.caption();
}

// The texts of the first `count` placement boxes, each followed by '|'.
std::string Placements(const fTessaly& form, int count) {
  std::string texts;
  for (int i = 0; i < count; ++i) texts += form.cboBatch[i].text() + "|";
  return texts;
}

TEST_F(WizardTest, ButtonsAndLabelsFollowTheStepTable) {
  fTessaly& wizard = Start();
  EXPECT_EQ(Buttons(wizard), "Next > EV-V Cancel");
  wizard.cmdNext.Click();
  EXPECT_EQ(Buttons(wizard), "Next > EVEV Cancel");
  wizard.lblStep[4].Click();  // the run is reached by Next alone
  for (int i = 0; i < fTessaly::kStepCount; ++i) EXPECT_EQ(wizard.lblStep[i].bold(), i == 1) << i;
  wizard.cmdNext.Click();
  wizard.cboBatch[2].SetText("yyyy (date)");
  wizard.cmdNext.Click();  // empty list
  EXPECT_EQ(Buttons(wizard), "Finish > -VEV Cancel");
  // Labels jump both ways; step 2 fills its boxes once.
  wizard.lblStep[1].Click();
  wizard.lblStep[2].Click();
  EXPECT_EQ(Placements(wizard, 3), "Document Name|extension|yyyy (date)|");
  EXPECT_EQ(Buttons(wizard), "Next > EVEV Cancel");
  AddFiles({"C:\\a\\one.txt"});
  wizard.cmdNext.Click();
  EXPECT_EQ(Buttons(wizard), "Finish > EVEV Cancel");
  wizard.cmdNext.Click();
  EXPECT_EQ(wizard.CurrentStep, 4);
  EXPECT_EQ(Buttons(wizard), "Next > E-E- Finished");
  wizard.lblStep[1].Click();  // step 4 is final: every label is dead
  EXPECT_EQ(wizard.CurrentStep, 4);
}

TEST_F(WizardTest, AnOptionNotCarriedThroughStep3IsReloadedAway) {
  fTessaly& wizard = AtStep2();
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

TEST_F(WizardTest, LabelJumpToStep3BeforeStep2FillsPlacementsAndSavesDefaults) {
  store.SaveProgramSetting("Settings", "chkUpperCase", SettingValue::FromInt32(1));
  Start();
  AddFiles({"C:\\Docs\\Report.TXT"});
  world.form->lblStep[3].Click();
  EXPECT_EQ(world.form->lstFilesC.List(0), "C:\\Docs\\Report.txt");
  // Nothing was loaded before, so the form's defaults overwrite the store;
  // one file greys "Use Real Files".
  for (const RememberedBox& box : kRememberedBoxes) {
    EXPECT_EQ(StoredState(box.name), box.name == "chkRealFiles" ? kGrayed : box.defaultState) << box.name;
  }
}

// Clicks while a loop lets events run: navigation during the preview is
// ignored, Cancel during the run ends it between files.
TEST_F(WizardTest, NavigationInThePreviewIsIgnoredAndCancelInTheRunEndsBetweenFiles) {
  fTessaly& wizard = AtStep2({"C:\\a\\1.TXT", "C:\\a\\2.TXT", "C:\\a\\3.TXT"});
  wizard.chkLowercase.SetValue(1);
  int clicks = 0;
  ui.OnPendingEvents([&] {
    if (wizard.CurrentStep == 4 && files.renames().size() >= 1) {
      wizard.cmdCancel.Click();
    } else if (wizard.progress() != nullptr && clicks++ == 1) {
      wizard.cmdBack.Click();
      wizard.lblStep[0].Click();
    }
  });
  wizard.cmdNext.Click();
  EXPECT_EQ(wizard.CurrentStep, 3);
  EXPECT_EQ(wizard.lstFilesC.ListCount(), 3u);
  EXPECT_TRUE(wizard.cmdNext.enabled());
  wizard.cmdNext.Click();
  EXPECT_TRUE(wizard.ended());
  EXPECT_FALSE(wizard.loaded());
  EXPECT_TRUE(files.GetAttributes("C:\\a\\3.TXT"));  // never reached
  EXPECT_THAT(FileLines(), ::testing::IsEmpty());  // nor is the file under way logged
  EXPECT_EQ(files.renames().size(), 1u);  // nor moved again after the click
}

// A stop asked for from outside, here between the two stages of a move,
// ends the run after that file: its log, its journal (left unfinished) and
// the disk hold it alone, and the wizard stays.
TEST_F(WizardTest, AStopRequestEndsTheRunAfterTheFileUnderWay) {
  fTessaly& wizard = AtStep2({"C:\\a\\1.TXT", "C:\\a\\2.TXT", "C:\\a\\3.TXT"});
  wizard.chkLowercase.SetValue(1);
  ui.OnPendingEvents([&] {
    if (files.renames().size() == 1) world.stops.Request();
  });
  wizard.cmdNext.Click();
  wizard.cmdNext.Click();
  EXPECT_TRUE(wizard.stopped());
  EXPECT_FALSE(wizard.ended());
  EXPECT_THAT(Disk(), ElementsAre("C:\\a\\1.txt=", "C:\\a\\2.TXT=", "C:\\a\\3.TXT="));
  EXPECT_THAT(FileLines(), ElementsAre("C:\\a\\...\\1.TXT > C:\\a\\...\\1.txt (Completed)"));
  EXPECT_THAT(wizard.tLog.text(), HasSubstr("1 files where renamed successfully."));
  const std::optional<JournalContent> journal =
      ReadJournal(world.journals.Text(wizard.journal()->name()));
  ASSERT_TRUE(journal);
  EXPECT_FALSE(journal->finished);
  ASSERT_EQ(journal->changes.size(), 2u);
  for (const JournalChange& change : journal->changes) {
    EXPECT_EQ(change.result, JournalChange::Result::kDone) << change.to;
  }
}

// ---- The command line ----

// The file part ends at the first slash and loses its quotes; a placement
// value is quoted, a step one digit; the first of each counts.
TEST(CommandLineText, FilePathsPlacementValuesAndStepDigits) {
  EXPECT_THAT(command_line::FilePaths(R"x(  "C:\a b.txt";C:\c.txt /step:4)x"),
              Optional(ElementsAre("C:\\a b.txt", "C:\\c.txt")));
  EXPECT_THAT(command_line::FilePaths("C:/x/y.txt"), Optional(ElementsAre("C:")));
  EXPECT_EQ(command_line::FilePaths(" /exit"), std::nullopt);
  EXPECT_THAT(command_line::FilePaths("a;;b "), Optional(ElementsAre("a", "", "b")));
  // Quotes alone make a file part that is not empty, though it holds no path.
  EXPECT_THAT(command_line::FilePaths(R"x("" /exit)x"), Optional(ElementsAre()));
  const struct { const char* line; int number; std::optional<std::string> value; } cases[] = {
      {R"x(/placement2:"(none)" /step:4)x", 2, "(none)"},
      {R"x(/placement1:Name)x", 1, std::nullopt},  // no opening quote
      {R"x(/placement2:"")x", 2, ""},
      {R"x(/placement3:"to the end /exit)x", 3, "to the end /exit"},
      {R"x(/placement3:"a" /placement3:"b")x", 3, "a"},  // the first one counts
  };
  for (const auto& c : cases) EXPECT_EQ(command_line::PlacementValue(c.line, c.number), c.value) << c.line;
  for (const auto& [line, count] :
       {std::pair{"/step:3", 3}, {"/step:12", 1}, {"/step:", 0}, {"/step:2 /step:4", 2}}) {
    EXPECT_EQ(command_line::StepCount(line), count) << line;
  }
}

// A folder brings its files as Add Directory does: its sub-folders' too
// only when "Include sub-directories" is ticked. What names nothing is
// left out and noted.
TEST_F(WizardTest, BarePathsOpenOnFileSelectionButASlashAnywhereKeepsWelcome) {
  MakeFiles({"C:\\d\\a.txt", "C:\\d\\b.txt", "C:\\d\\sub\\c.txt", "C:\\d\\sub\\deeper\\d.txt"});
  const std::string line = R"x(C:\d\a.txt;C:\D\A.TXT;"C:\d\b.txt";C:\d\sub\;C:\d\missing.txt;C:\d\b.txt\)x";
  fTessaly& wizard = Start(line);
  EXPECT_EQ(wizard.CurrentStep, 1);
  EXPECT_EQ(wizard.lStat.caption(), "3 files.");
  EXPECT_THAT(wizard.leftOut(), ElementsAre("C:\\d\\missing.txt", "C:\\d\\b.txt\\"));
  world.beforeStart = [](fTessaly& form) { form.chkSubDirectories.SetValue(kChecked); };
  EXPECT_EQ(Start("C:\\d\\sub").lStat.caption(), "2 files.");
  EXPECT_EQ(Start(R"x("")x").CurrentStep, 1);  // quotes alone
  EXPECT_EQ(Start(R"x(C:\d\a.txt /Exit)x").CurrentStep, 0);
  EXPECT_FALSE(world.form->ended());  // "/Exit" is not "/exit"
  EXPECT_EQ(world.form->lstFiles.ListCount(), 1u);
}

TEST_F(WizardTest, PathsBeyondTheListsLimitAreCountedNotLost) {
  std::string line;
  for (int i = 0; i < 32769; ++i) {
    const std::string path = "C:\\many\\" + std::to_string(i) + ".txt";
    files.AddFile(path);
    line += path + ";";
  }
  fTessaly& wizard = Start(line);
  EXPECT_EQ(wizard.lstFiles.ListCount(), 32767u);
  EXPECT_EQ(wizard.refusedForLimit(), 2);
  EXPECT_EQ(wizard.lStat.caption(), "32767 files.");
  // One warning for each addition that refused any.
  int warnings = 0;
  const Connection warning = wizard.listFull.Connect([&] { ++warnings; });
  wizard.AddDroppedFiles({});
  List({"C:\\one.txt", "C:\\two.txt"});
  EXPECT_EQ(warnings, 1);
  // Run unattended, the front-ends' warning goes to standard error: a
  // message box nobody closes would hold the run for ever.
  for (const char* unattended : {"/exit", "/hide"}) {
    std::ostringstream errors;
    Connection told;
    world.beforeStart = [&](fTessaly& form) { told = launch::TellWhenListFull(form, world.ui, errors); };
    Start(line + unattended);
    EXPECT_TRUE(world.ui.messages().empty()) << unattended;
    EXPECT_EQ(errors.str(), "tessaly: 2 paths were not added: the file list holds at most 32,767 files.\n");
  }
  world.beforeStart = nullptr;
}

// A settings switch, even an unknown one, keeps the stored options from
// loading; placements survive the filling of step 2; option switches run in
// table order with their rules.
TEST_F(WizardTest, SwitchesWinOverTheStoredOptionsAndTheFilling) {
  store.SaveProgramSetting("Settings", "chkFixSpacing", SettingValue::FromInt32(1));
  fTessaly& wizard =
      Start(R"x(/settings:Nonsense /placement3:"yyyy (date)" /placement1:Bare /placement2:"" /step:2)x");
  EXPECT_EQ(wizard.CurrentStep, 2);
  EXPECT_EQ(wizard.chkFixSpacing.value(), 0);
  // No quote: no value, but not filled either.
  EXPECT_EQ(Placements(wizard, 4), "Combo1||yyyy (date)||");
  fTessaly& boxes = Start("/settings:UpperCase /settings:LowerCase /settings:LongExtension "
                          "/settings:ShortExtension /settings:DontAllowSpaces /settings:RemoveUnderscores");
  std::string states;
  for (const CheckBox* box : {&boxes.chkUpperCase, &boxes.chkLowercase, &boxes.chkLongExtension,
                              &boxes.chkShortExtension, &boxes.chkRemoveu, &boxes.chkAllowSpaces}) {
    states += std::to_string(box->value());
  }
  EXPECT_EQ(states, "101020");
}

TEST_F(WizardTest, ShowAndHideDecideWhetherTheWizardAppears) {
  const struct { const char* line; std::vector<std::string> shown; bool ended; } cases[] = {
      {"/hidebar", {}, false},          {"/Hide", {"fTessaly"}, false},
      {"/exit", {}, true},              {"/show /hide", {"fTessaly"}, false},
      {"/showme /exit", {"fTessaly"}, true},
  };
  for (const auto& c : cases) {
    ui = ScriptedUi();
    EXPECT_EQ(Start(c.line).ended(), c.ended) << c.line;
    EXPECT_EQ(ui.shownForms(), c.shown) << c.line;
  }
}

// A dry run shows what the run would do and does nothing else: its steps
// stop at the preview, and the weekly check starts no updater (a real run
// after it still does).
TEST_F(WizardTest, ADryRunStopsAtThePreviewAndStartsNoOtherProgram) {
  MakeFiles({"C:\\d\\A.TXT", "C:\\up\\Updater.exe"});
  store.SaveSharedSetting(kShortPathsKey, "AutoUpdate", SettingValue::FromText("C:\\up\\Updater.exe"));
  world.network.Set(connection::kLan);
  for (bool dryRun : {true, false}) {
    fTessaly& wizard = world.Start("C:\\d\\A.TXT /step:4", dryRun);
    EXPECT_EQ(wizard.CurrentStep, dryRun ? 3 : 4);
    EXPECT_EQ(wizard.dryRunHeldBackTheRun(), dryRun);
    EXPECT_EQ(files.renames().empty(), dryRun);
    EXPECT_EQ(world.shell.requests().size(), dryRun ? 0u : 1u);
  }
}

// ---- The example of step 2 ----

TEST_F(WizardTest, TypingNoneEmptiesTheBoxAtTheClosingBracket) {
  fTessaly& wizard = AtStep2();
  std::string typed;
  for (char c : std::string("(none)")) wizard.cboBatch[1].SetText(typed += c);
  EXPECT_EQ(wizard.cboBatch[1].text(), "");
  EXPECT_THAT(wizard.txtExample.text(), ::testing::Not(HasSubstr(".jpeg")));
}

// Each box's rule acts on the state after the click.
TEST_F(WizardTest, CheckBoxRulesActOnTheStateAfterTheClick) {
  using Box = CheckBox fTessaly::*;
  const struct { Box clicked; CheckState state; Box other; CheckState otherBefore, otherAfter; } rules[] = {
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

TEST_F(WizardTest, RealFilesFollowTheListSize) {
  fTessaly& wizard = AtStep2({"C:\\f\\a.txt", "C:\\f\\b.txt"});
  EXPECT_EQ(wizard.chkRealFiles.value(), 2);
  EXPECT_EQ(wizard.SamplePath1, "c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg");
  AddFiles({"C:\\f\\c.txt"});  // three: greyed stays greyed
  EXPECT_EQ(wizard.chkRealFiles.value(), 2);
  // Ticking the greyed box runs its rule once more inside the first run,
  // whose own draws then come last. Fractions 0.5 → 1.5 → 2 (half to
  // even), 0.25 → 0.75 → 1, 0 → 0.
  for (double fraction : {0.9, 0.9, 0.9, 0.5, 0.25, 0.0}) world.random.QueueFraction(fraction);
  AddFiles({"C:\\f\\d.txt"});
  EXPECT_EQ(wizard.chkRealFiles.value(), 1);
  EXPECT_EQ(wizard.SamplePath1 + ";" + wizard.SamplePath2 + ";" + wizard.SamplePath3,
            "C:\\f\\c.txt;C:\\f\\b.txt;C:\\f\\a.txt");
  EXPECT_EQ(world.random.seeds().back(), 12);
  EXPECT_EQ(wizard.txtExample.text(), "c.txt\r\nb.txt\r\na.txt");
  // Three files again keep the ticked box ticked.
  wizard.lstFiles.SetSelected(3, true);
  wizard.cmdRemove.Click();
  EXPECT_EQ(wizard.chkRealFiles.value(), 1);
  wizard.chkRealFiles.SetValue(0);
  EXPECT_EQ(wizard.SamplePath1, "c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg");
}

// ---- The rename run, its progress and its log ----

// Percentages round half to even and drop trailing zeros; the bar and the
// caption follow the tags.
TEST(ProgressForm, BarWidthAndCaptionFollowTheTags) {
  const struct { double current, total; const char *separator, *text; } cases[] = {
      {2, 3, ".", "66.67%"}, {3, 3, ".", "100%"}, {1, 8, ",", "12,5%"},
      {1, 32, ".", "3.12%"}, {3, 32, ".", "9.38%"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(PercentText(c.current, c.total, c.separator), c.text) << c.current << "/" << c.total;
  }
  ScriptedUi ui;
  FixedLocale locale;
  fProgress progress(ui, locale);
  progress.start(0, 8);
  EXPECT_EQ(progress.lCur.width(), 0);
  EXPECT_EQ(progress.lCaption.caption(), "0%");
  progress.setvalue(1);
  EXPECT_EQ(progress.lCaption.caption(), "12.5%");
  EXPECT_EQ(progress.lCur.width(), 767);  // 6135 / 8, rounded
  progress.setvalue(8);
  EXPECT_EQ(progress.lCur.width(), fProgress::kTroughWidth);
  EXPECT_EQ(ui.pendingEventRuns(), 3);
}

TEST_F(WizardTest, LogCutsFoldersToSixCharactersWithTheMarkAlways) {
  FixedLocale locale(".", "-", ",");  // its separators shape dates and times
  RichTextBox box;
  // Paths shown as on POSIX: the line is cut in the model, then shown.
  MemoryFileSystem paths(MemoryFileSystem::LetterCase::kExact, MemoryFileSystem::ShownForm::kPosix);
  ChangeLog log(box, world.clock, locale, paths);
  log.WriteHead(3, 100);
  RunCounters counters;
  for (const auto& [from, to, outcome] :
       {std::tuple{"c:\\graphics\\common\\a.txt", "c:\\graphics\\common\\b.txt", Outcome::kCompleted},
        std::tuple{"c:\\a.txt", "AC/DC", Outcome::kNoChange},
        std::tuple{"c:\\Ünïcode Ça\\x", "c:\\Ünïcode Ça\\y", Outcome::kFailedExists}}) {
    log.WriteFileLine(from, to, outcome);
    counters.Count(outcome);
  }
  log.WriteFoot(counters);
  const std::string head =
      "Renaming Started at: 11.18.2026 - 14-02-09\r\n\r\n3 total files.\r\n\r\nRenamed Files - Log:\r\n";
  const std::string failed = "14-02-09 - c:/Ünï.../x > c:/Ünï.../y (Failed! - File Already Exists)\r\n";
  EXPECT_EQ(box.text(), head + "14-02-09 - c:/gra.../a.txt > c:/gra.../b.txt (Completed)\r\n"
                               "14-02-09 - c:/.../a.txt > .../AC\\DC (No Change}\r\n" + failed +
                               "\r\n\r\n1 files where renamed successfully.\r\n1 files remain unchanged.\r\n"
                               "1 files failed to be renamed.\r\n\r\n"
                               "Renaming Completed at: 11.18.2026 - 14-02-09");
  EXPECT_EQ(box.rightMargin(), 400);
  // Each span covers its line exactly, line end included.
  ASSERT_EQ(box.spans().size(), 3u);
  EXPECT_EQ(box.spans()[0].start, text::CharCount(head));
  EXPECT_EQ(box.spans()[1].start, box.spans()[0].start + box.spans()[0].length);
  EXPECT_EQ(box.spans()[1].colour, (Rgb{0, 0, 0}));  // no change
  EXPECT_EQ(box.spans()[2], (ColourSpan{box.spans()[2].start, text::CharCount(failed), {255, 0, 0}}));
}

TEST_F(WizardTest, EveryOutcomeWithItsColourAndCounter) {
  // a → "(Completed)"; b's target is taken and the person says Yes →
  // "(Completed)"; c is removed before the run → failed; d's target is
  // taken, the person says No → temp file stays; f is copied but, read-only,
  // cannot be removed → the original stays.
  MakeFiles({"C:\\w\\b-new.txt", "C:\\w\\d-new.txt"});
  fTessaly& wizard = AtStep2({"C:\\w\\a.txt", "C:\\w\\b.txt", "C:\\w\\c.txt", "C:\\w\\d.txt",
                              "C:\\w\\e-new.txt", "C:\\w\\f.txt"});
  files.MakeReadOnly("C:\\w\\f.txt");
  files.CopyInsteadOfMoving("C:\\w\\f.txt");
  // Placement order is 0,1,2...: put the suffix before the extension.
  wizard.cboBatch[1].SetText("-new");
  wizard.cboBatch[2].SetText("extension");
  wizard.cmdNext.Click();
  files.Remove("C:\\w\\c.txt");
  ui.QueueAnswer(MessageAnswer::kYes);
  ui.QueueAnswer(MessageAnswer::kNo);
  wizard.cmdNext.Click();
  EXPECT_THAT(FileLines(), ElementsAre(
      "C:\\w\\...\\a.txt > C:\\w\\...\\a-new.txt (Completed)",
      "C:\\w\\...\\b.txt > C:\\w\\...\\b-new.txt (Completed)",
      "C:\\w\\...\\c.txt > C:\\w\\...\\c-new.txt (Failed! - Error Renaming File)",
      "C:\\w\\...\\d.txt > C:\\w\\...\\d-new.txt (Completed - Error Removing Temp File)",
      "C:\\w\\...\\e-new.txt > C:\\w\\...\\e-new-new.txt (Completed)",
      "C:\\w\\...\\f.txt > C:\\w\\...\\f-new.txt (Completed - Error Removing Original File)"));
  EXPECT_THAT(wizard.tLog.text(), HasSubstr("\r\n\r\n3 files where renamed successfully.\r\n"
                                            "2 files where renamed but with errors.\r\n"
                                            "1 files failed to be renamed.\r\n\r\nRenaming Completed at:"));
  // Each file line in its outcome's colour.
  std::vector<Rgb> colours;
  for (const ColourSpan& span : wizard.tLog.spans()) colours.push_back(span.colour);
  const Rgb blue{0, 0, 255}, red{255, 0, 0}, black{0, 0, 0};
  EXPECT_THAT(colours, ElementsAre(blue, blue, red, black, blue, red));
  EXPECT_EQ(wizard.tLog.rightMargin(), 4 * 7935);
}

// One file given a name that is taken, or that it cannot take: the question
// asked (the name it quotes, or none; the answer is Yes only where said),
// the outcome, how many moves the disk saw, and every file left on it.
TEST_F(WizardTest, TakenNamesAskOnlyWhereAnotherFileWouldBeLost) {
  const struct {
    const char* what;
    LetterCase letterCase;
    std::vector<std::string> disk;  // besides the listed file, "path=contents"
    const char *listed, *newName;
    // 'L' locked; 'C' copied where moved, and read-only; 'N' copied where
    // moved, and a newer version saved under its name as it is; 'H' its new
    // name a hard link of it; 'Y' the file asked about changed while asked;
    // 'F' a folder stands under its new name; 'G' it is gone before the run.
    char hold;
    bool yes;
    const char *asked, *outcome;
    std::size_t moves;
    std::vector<std::string> after;
  } cases[] = {
      // The file under its own temp name is never offered for deletion;
      // the other x is.
      {"own temp name", LetterCase::kIgnore, {"C:\\t\\x=theirs"}, "C:\\t\\x.temp", "x", ' ', true, "x",
       "(Completed)", 2, {"C:\\t\\x=C:\\t\\x.temp"}},
      // Refusing to overwrite a foreign temp file fails the file.
      {"foreign temp", LetterCase::kIgnore, {"C:\\t\\new.txt=", "C:\\t\\new.txt.temp=foreign"},
       "C:\\t\\old.txt", "new.txt", ' ', false, "new.txt.temp", "(Failed! - File Already Exists)", 0,
       {"C:\\t\\new.txt=", "C:\\t\\new.txt.temp=foreign", "C:\\t\\old.txt=C:\\t\\old.txt"}},
      // Where letter case counts, x.temp beside X.TEMP is another file: it
      // is offered like any other, and refused, nothing moves.
      {"case twin", LetterCase::kExact, {"C:\\t\\x=theirs", "C:\\t\\x.temp=twin"}, "C:\\t\\X.TEMP", "x",
       ' ', false, "x.temp", "(Failed! - File Already Exists)", 0,
       {"C:\\t\\X.TEMP=C:\\t\\X.TEMP", "C:\\t\\x=theirs", "C:\\t\\x.temp=twin"}},
      // A file that cannot take its new name fails, stays, and nobody is asked.
      {"temp- marker", LetterCase::kIgnore, {"C:\\g\\b.txt=", "temp-C:\\g\\b.txt="}, "C:\\g\\a.txt", "b.txt",
       ' ', false, "", "(Failed! - File Already Exists)", 0,
       {"C:\\g\\a.txt=C:\\g\\a.txt", "C:\\g\\b.txt=", "temp-C:\\g\\b.txt="}},
      {"no folder", LetterCase::kIgnore, {}, "C:\\g\\a.txt", "C:\\nowhere\\a.txt", ' ', false, "",
       "(Failed! - Error Renaming File)", 0, {"C:\\g\\a.txt=C:\\g\\a.txt"}},
      {"locked", LetterCase::kIgnore, {}, "C:\\g\\a.txt", "c.txt", 'L', false, "",
       "(Failed! - Error Renaming File)", 0, {"C:\\g\\a.txt=C:\\g\\a.txt"}},
      // Gone, with its new name taken: the two-stage road finds nothing to move.
      {"gone", LetterCase::kIgnore, {"C:\\g\\b.txt=theirs"}, "C:\\g\\a.txt", "b.txt", 'G', false, "",
       "(Failed! - File Already Exists)", 0, {"C:\\g\\b.txt=theirs"}},
      // A folder is no file: the direct road, whose rename fails.
      {"folder", LetterCase::kIgnore, {}, "C:\\g\\a.txt", "b.txt", 'F', false, "",
       "(Failed! - Error Renaming File)", 0, {"C:\\g\\a.txt=C:\\g\\a.txt"}},
      // An original left behind by its copy does not stop the copy reaching the new
      // name; either completion line will do.
      {"original stays", LetterCase::kIgnore, {"C:\\g\\b.txt=theirs"}, "C:\\g\\a.txt", "b.txt", 'C', true,
       "b.txt", "(Completed", 2, {"C:\\g\\a.txt=C:\\g\\a.txt", "C:\\g\\b.txt=C:\\g\\a.txt"}},
      // Only the very file the move left behind is removed, only the file
      // the question named is deleted, and a hard link is another file.
      {"newer original", LetterCase::kIgnore, {}, "C:\\g\\a.txt", "b.txt", 'N', false, "",
       "(Completed - Error Removing Original File)", 1, {"C:\\g\\a.txt=newer", "C:\\g\\b.txt=newer"}},
      {"changed while asked", LetterCase::kIgnore, {"C:\\g\\b.txt=theirs"}, "C:\\g\\a.txt", "b.txt", 'Y',
       true, "b.txt", "(Completed - Error Removing Temp File)", 1,
       {"C:\\g\\b.txt=newer", "C:\\g\\b.txt.temp=C:\\g\\a.txt"}},
      {"hard link", LetterCase::kExact, {}, "C:\\h\\x", "y", 'H', true, "y", "(Completed)", 2,
       {"C:\\h\\y=C:\\h\\x"}},
      // A case-only rename needs no question; only a disk that ignores case
      // goes by way of the temp name.
      {"case only", LetterCase::kIgnore, {}, "c:\\k\\A", "a", ' ', false, "", "(Completed)", 2,
       {"c:\\k\\a=c:\\k\\A"}},
      {"case only, exact", LetterCase::kExact, {}, "c:\\k\\A", "a", ' ', false, "", "(Completed)", 1,
       {"c:\\k\\a=c:\\k\\A"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    files = MemoryFileSystem(c.letterCase);
    ui = ScriptedUi();
    for (const std::string& file : c.disk) {
      files.SetContents(file.substr(0, file.find('=')), file.substr(file.find('=') + 1));
    }
    files.SetContents(c.listed, c.listed);
    if (c.hold == 'L') files.Lock(c.listed);
    if (c.hold == 'C') {
      files.CopyInsteadOfMoving(c.listed);
      files.MakeReadOnly(c.listed);
    }
    if (c.hold == 'N') {
      files.CopyInsteadOfMoving(c.listed);
      files.BeforeNextRename([&] { files.SetContents(c.listed, "newer"); });
    }
    if (c.hold == 'H') files.AddLink(c.listed, "C:\\h\\y");
    if (c.hold == 'F') files.AddDirectory("C:\\g\\b.txt");
    if (c.hold == 'Y') ui.OnMessageBox([&] { files.SetContents("C:\\g\\b.txt", "newer"); });
    fTessaly& wizard = Start();
    List({c.listed});
    wizard.lblStep[2].Click();
    wizard.cboBatch[0].SetText(c.newName);
    wizard.cboBatch[1].SetText("");
    wizard.cmdNext.Click();
    if (c.hold == 'G') files.Remove(c.listed);
    if (c.yes) ui.QueueAnswer(MessageAnswer::kYes);
    wizard.cmdNext.Click();
    std::string asked;
    for (const auto& m : ui.messages()) asked += m.text.substr(10, m.text.find('\'', 10) - 10);
    EXPECT_EQ(asked, c.asked);
    EXPECT_THAT(FileLines(), ElementsAre(HasSubstr(c.outcome)));
    EXPECT_EQ(files.renames().size(), c.moves);
    EXPECT_EQ(Disk(), c.after);
  }
}

TEST_F(WizardTest, TwoFilesWithOneNewNameAskAtStageTwo) {
  fTessaly& wizard = AtStep2({"C:\\s\\1.txt", "C:\\s\\2.txt"});
  files.SetContents("C:\\s\\2.txt", "second");
  wizard.cboBatch[0].SetText("same");
  wizard.cmdNext.Click();
  EXPECT_EQ(wizard.tOutput.text(), "Rename Files Preview:\r\n    C:\\s\\same.txt\r\n    C:\\s\\same.txt\r\n");
  ui.QueueAnswer(MessageAnswer::kYes);
  wizard.cmdNext.Click();
  EXPECT_THAT(FileLines(), ElementsAre(HasSubstr("(Completed)"), HasSubstr("(Completed)")));
  EXPECT_EQ(Disk(), (std::vector<std::string>{"C:\\s\\same.txt=second"}));
  EXPECT_EQ(ui.messages()[0].text,
            "The file 'same.txt' already exists. Would you like to overwrite this file?");
  // Whatever the disk said before the question may have changed while it stood.
  EXPECT_EQ(files.forgets(), 1);
}

// A name the conversion leaves ending in a period or blank ("README" gives
// "README.") is given as Windows stores it: POSIX disks would keep the
// ends, so there the name loses them before the preview, the run and the
// log see it; folders keep theirs. On Windows the system drops them itself.
TEST_F(WizardTest, ANewNameEndsAsWindowsStoresIt) {
  for (const auto shown : {MemoryFileSystem::ShownForm::kPosix, MemoryFileSystem::ShownForm::kModel}) {
    const bool posix = shown == MemoryFileSystem::ShownForm::kPosix;
    files = MemoryFileSystem(LetterCase::kExact, shown);
    fTessaly& wizard = AtStep2({"\\w\\v1.\\README", "\\w\\v1.\\notes.txt"});
    wizard.cboBatch[2].SetText(" .");
    wizard.cmdNext.Click();
    EXPECT_EQ(wizard.tOutput.text(), posix ? "Rename Files Preview:\r\n    /w/v1./notes.txt\r\n    /w/v1./README\r\n"
                                           : "Rename Files Preview:\r\n    \\w\\v1.\\notes.txt\r\n"
                                             "    \\w\\v1.\\README\r\n");
    wizard.cmdNext.Click();
    EXPECT_THAT(FileLines(), ElementsAre(HasSubstr("notes.txt (No Change}"), HasSubstr("README (No Change}")));
    EXPECT_TRUE(files.renames().empty());
  }
}

TEST_F(WizardTest, MoveToANewFolderAsksForItFirst) {
  files.AddDirectory("D:\\Sorted");
  fTessaly& wizard = Start();
  AddFiles({"C:\\one\\a.txt"});
  wizard.lblStep[3].Click();
  ui.QueueFolder("D:\\Sorted");
  wizard.optMoveNewFolder.SetValue(true);  // no folder yet: the browser opens
  EXPECT_EQ(wizard.lFolder.caption(), "D:\\Sorted");
  EXPECT_EQ(wizard.progress(), nullptr);  // the preview's, unloaded at its end
  wizard.cmdNext.Click();
  EXPECT_TRUE(files.GetAttributes("D:\\Sorted\\a.txt"));
}

}  // namespace
}  // namespace tessaly
