#include <gmock/gmock.h>

#include <functional>

#include "text/text_ops.h"
#include "text/utf8.h"
#include "wizard_test_support.h"

namespace tessaly {
namespace {

using ::testing::HasSubstr;
using LetterCase = MemoryFileSystem::LetterCase;

class RenameRunTest : public WizardTest {
 protected:
  explicit RenameRunTest(LetterCase letterCase = LetterCase::kIgnore) : WizardTest(letterCase) {}

  // Lists the files, sets the placements and runs to the end.
  fTessaly& Run(std::initializer_list<std::string_view> paths, std::string placement1,
                std::string placement2 = "extension") {
    fTessaly& wizard = Start();
    AddFiles(paths);
    wizard.lblStep[2].Click();
    wizard.cboBatch[0].SetText(std::move(placement1));
    wizard.cboBatch[1].SetText(std::move(placement2));
    wizard.cmdNext.Click();
    wizard.cmdNext.Click();
    return wizard;
  }

  // The file lines of the log, without their times.
  std::vector<std::string> FileLines() const {
    std::vector<std::string> lines;
    bool inFiles = false;
    for (std::string_view line : text::Split(form->tLog.text(), "\r\n")) {
      if (line == "Renamed Files - Log:") {
        inFiles = true;
      } else if (line.empty()) {
        inFiles = false;
      } else if (inFiles) {
        lines.emplace_back(line.substr(11));  // "14:02:09 - "
      }
    }
    return lines;
  }

  bool Exists(std::string_view path) { return files.GetAttributes(path).has_value(); }
};

TEST_F(RenameRunTest, EveryOutcomeWithItsColourAndCounter) {
  // a → "(Completed)"; b's target is taken and the person says Yes →
  // "(Completed)"; c is removed before the run → failed; d's target is
  // taken, the person says No → temp file stays; f is copied but, read-only,
  // cannot be removed → the original stays.
  MakeFiles({"C:\\w\\b-new.txt", "C:\\w\\d-new.txt"});
  fTessaly& wizard = Start();
  AddFiles({"C:\\w\\a.txt", "C:\\w\\b.txt", "C:\\w\\c.txt", "C:\\w\\d.txt", "C:\\w\\e-new.txt",
            "C:\\w\\f.txt"});
  files.MakeReadOnly("C:\\w\\f.txt");
  files.CopyInsteadOfMoving("C:\\w\\f.txt");
  wizard.lblStep[2].Click();
  wizard.cboBatch[2].SetText("-new");
  wizard.cboBatch[0].SetText("Document Name");
  // Placement order is 0,1,2...: put the suffix before the extension.
  wizard.cboBatch[1].SetText("-new");
  wizard.cboBatch[2].SetText("extension");
  wizard.cmdNext.Click();
  files.Remove("C:\\w\\c.txt");
  ui.QueueAnswer(MessageAnswer::kYes);
  ui.QueueAnswer(MessageAnswer::kNo);
  wizard.cmdNext.Click();
  EXPECT_THAT(FileLines(),
              ::testing::ElementsAre(
                  "C:\\w\\...\\a.txt > C:\\w\\...\\a-new.txt (Completed)",
                  "C:\\w\\...\\b.txt > C:\\w\\...\\b-new.txt (Completed)",
                  "C:\\w\\...\\c.txt > C:\\w\\...\\c-new.txt (Failed! - Error Renaming File)",
                  "C:\\w\\...\\d.txt > C:\\w\\...\\d-new.txt (Completed - Error Removing Temp File)",
                  "C:\\w\\...\\e-new.txt > C:\\w\\...\\e-new-new.txt (Completed)",
                  "C:\\w\\...\\f.txt > C:\\w\\...\\f-new.txt (Completed - Error Removing Original File)"));
  const std::string& log = wizard.tLog.text();
  EXPECT_THAT(log, HasSubstr("\r\n\r\n3 files where renamed successfully.\r\n2 files where renamed "
                             "but with errors.\r\n1 files failed to be renamed.\r\n\r\nRenaming "
                             "Completed at:"));
  const auto colourOf = [&](std::string_view piece) {
    const std::size_t byte = log.find(piece);
    return wizard.tLog.ColourAt(text::CharCount(std::string_view(log).substr(0, byte)));
  };
  EXPECT_EQ(colourOf("a.txt >"), (Rgb{0, 0, 255}));
  EXPECT_EQ(colourOf("c.txt >"), (Rgb{255, 0, 0}));
  EXPECT_EQ(colourOf("d.txt >"), (Rgb{0, 0, 0}));
  EXPECT_EQ(colourOf("f.txt >"), (Rgb{255, 0, 0}));
  EXPECT_EQ(colourOf("Renaming Started"), (Rgb{0, 0, 0}));
  EXPECT_EQ(colourOf("(Completed)\r\n14"), (Rgb{0, 0, 255}));  // whole line, outcome too
  EXPECT_EQ(wizard.tLog.rightMargin(), 4 * 7935);
}

TEST_F(RenameRunTest, AFileUnderItsOwnTempNameIsNeverOfferedForDeletion) {
  MakeFiles({"C:\\t\\x"});
  fTessaly& wizard = Start();
  AddFiles({"C:\\t\\x.temp"});
  wizard.lblStep[2].Click();
  wizard.cboBatch[1].SetText("");  // "x.temp" → "x", which is taken
  wizard.cmdNext.Click();
  ui.QueueAnswer(MessageAnswer::kYes);  // overwrite the other x
  wizard.cmdNext.Click();
  ASSERT_EQ(ui.messages().size(), 1u);
  EXPECT_THAT(ui.messages()[0].text, HasSubstr("'x'"));
  EXPECT_TRUE(Exists("C:\\t\\x"));
  EXPECT_FALSE(Exists("C:\\t\\x.temp"));
  EXPECT_THAT(FileLines()[0], HasSubstr("(Completed)"));
}

TEST_F(RenameRunTest, RefusingToOverwriteAForeignTempFileFailsTheFile) {
  MakeFiles({"C:\\t\\new.txt", "C:\\t\\new.txt.temp"});
  files.SetContents("C:\\t\\new.txt.temp", "foreign");
  Run({"C:\\t\\old.txt"}, "new");
  EXPECT_THAT(FileLines()[0], HasSubstr("(Failed! - File Already Exists)"));
  EXPECT_EQ(files.Contents("C:\\t\\new.txt.temp"), "foreign");
  EXPECT_TRUE(Exists("C:\\t\\old.txt"));
  EXPECT_TRUE(Exists("C:\\t\\new.txt"));
  ASSERT_EQ(ui.messages().size(), 1u);
  EXPECT_THAT(ui.messages()[0].text, HasSubstr("'new.txt.temp'"));
}

// A file that cannot take its new name fails, stays, and nobody is asked.
TEST_F(RenameRunTest, FailuresWithoutAQuestionKeepTheFile) {
  const struct {
    const char* placement;
    std::function<void()> scene;  // set before the run
    const char* outcome;
  } cases[] = {
      {"b", [&] { MakeFiles({"C:\\g\\b.txt", "temp-C:\\g\\b.txt"}); }, "(Failed! - File Already Exists)"},
      {"C:\\nowhere\\a", [] {}, "(Failed! - Error Renaming File)"},
      {"c", [&] { files.Lock("C:\\g\\a.txt"); }, "(Failed! - Error Renaming File)"},  // last
  };
  for (const auto& c : cases) {
    ui = ScriptedUi();
    fTessaly& wizard = Start();
    AddFiles({"C:\\g\\a.txt"});
    wizard.lblStep[2].Click();
    wizard.cboBatch[0].SetText(c.placement);
    wizard.cmdNext.Click();
    c.scene();
    wizard.cmdNext.Click();
    EXPECT_THAT(FileLines()[0], HasSubstr(c.outcome)) << c.placement;
    EXPECT_TRUE(Exists("C:\\g\\a.txt")) << c.placement;
    EXPECT_TRUE(ui.messages().empty()) << c.placement;
  }
}

TEST_F(RenameRunTest, TwoFilesWithOneNewNameAskAtStageTwo) {
  fTessaly& wizard = Start();
  AddFiles({"C:\\s\\1.txt", "C:\\s\\2.txt"});
  files.SetContents("C:\\s\\2.txt", "second");
  wizard.lblStep[2].Click();
  wizard.cboBatch[0].SetText("same");
  wizard.cmdNext.Click();
  EXPECT_EQ(wizard.tOutput.text(),
            "Rename Files Preview:\r\n    C:\\s\\same.txt\r\n    C:\\s\\same.txt\r\n");
  ui.QueueAnswer(MessageAnswer::kYes);
  wizard.cmdNext.Click();
  EXPECT_THAT(FileLines(), ::testing::ElementsAre(HasSubstr("(Completed)"), HasSubstr("(Completed)")));
  EXPECT_EQ(files.Contents("C:\\s\\same.txt"), "second");
  EXPECT_EQ(ui.messages()[0].text,
            "The file 'same.txt' already exists. Would you like to overwrite this file?");
  // Whatever the disk said before the question may have changed while it stood.
  EXPECT_EQ(files.forgets(), 1);
}

TEST_F(RenameRunTest, MoveToANewFolderAsksForItFirst) {
  files.AddDirectory("D:\\Sorted");
  fTessaly& wizard = Start();
  AddFiles({"C:\\one\\a.txt"});
  wizard.lblStep[3].Click();
  ui.QueueFolder("D:\\Sorted");
  wizard.optMoveNewFolder.SetValue(true);  // no folder yet: the browser opens
  EXPECT_EQ(wizard.lFolder.caption(), "D:\\Sorted");
  EXPECT_EQ(wizard.progress(), nullptr);  // the preview's, unloaded at its end
  wizard.cmdNext.Click();
  EXPECT_TRUE(Exists("D:\\Sorted\\a.txt"));
}

// The case-only rename on both kinds of file system.
class CaseOnlyRenameTest : public RenameRunTest,
                           public ::testing::WithParamInterface<LetterCase> {
 protected:
  CaseOnlyRenameTest() : RenameRunTest(GetParam()) {}
};

TEST_P(CaseOnlyRenameTest, ChangesTheCaseWithoutAQuestion) {
  files.AddDirectory("c:\\k");
  fTessaly& wizard = Start();
  AddFiles({"c:\\k\\A.TXT"});
  wizard.lblStep[2].Click();
  wizard.chkLowercase.SetValue(1);
  wizard.cmdNext.Click();
  wizard.cmdNext.Click();
  EXPECT_TRUE(ui.messages().empty());
  EXPECT_THAT(files.Paths(), ::testing::Contains("c:\\k\\a.txt"));
  EXPECT_THAT(files.Paths(), ::testing::Not(::testing::Contains("c:\\k\\A.TXT")));
  EXPECT_THAT(FileLines()[0], HasSubstr("(Completed)"));
  // Only a file system that ignores case needs the road by way of the temp name.
  const bool viaTemp = files.renames().size() == 2;
  EXPECT_EQ(viaTemp, GetParam() == LetterCase::kIgnore);
}

// Where letter case counts, x.temp beside X.TEMP is another file: it is
// offered for overwriting like any other, and refused, nothing moves.
TEST_P(CaseOnlyRenameTest, ACaseTwinOfTheTempNameIsAnotherFile) {
  if (GetParam() == LetterCase::kIgnore) GTEST_SKIP() << "case twins cannot exist here";
  MakeFiles({"C:\\t\\x", "C:\\t\\x.temp"});
  files.SetContents("C:\\t\\x", "theirs");
  files.SetContents("C:\\t\\x.temp", "twin");
  Run({"C:\\t\\X.TEMP"}, "x", "");
  ASSERT_EQ(ui.messages().size(), 1u);
  EXPECT_THAT(ui.messages()[0].text, HasSubstr("'x.temp'"));
  EXPECT_THAT(FileLines()[0], HasSubstr("(Failed! - File Already Exists)"));
  EXPECT_EQ(files.Contents("C:\\t\\x"), "theirs");
  EXPECT_EQ(files.Contents("C:\\t\\x.temp"), "twin");
  EXPECT_TRUE(Exists("C:\\t\\X.TEMP"));
}

INSTANTIATE_TEST_SUITE_P(BothFileSystems, CaseOnlyRenameTest,
                         ::testing::Values(LetterCase::kIgnore, LetterCase::kExact));

}  // namespace
}  // namespace tessaly
