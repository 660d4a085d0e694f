#include "system/shell_open.h"

#include <gtest/gtest.h>

#include "platform/memory/fixed_program.h"
#include "platform/memory/recording_shell.h"

namespace tessaly {
namespace {

constexpr std::int32_t kBase = -2147220456;

TEST(ShellFailureTest, EachCodeHasItsNumberAndText) {
  constexpr const char* kOther =
      "An error occurred occurred whilst trying to open or print the selected file.";
  struct Case {
    std::int32_t code;
    std::int32_t number;
    const char* text;
  };
  const Case cases[] = {
      {0, 7, "Out of memory"},
      {5, 75, "Path/file access error"},
      {26, 75, "A sharing violation occurred."},
      {27, kBase + 27, "This file type does not have a valid file association."},
      {29, 285,
       "The file could not be opened because the DDE transaction failed. Please try again in a "
       "moment."},
      {32, 48, "The specified dynamic-link library was not found."},
      // Every other code shares one text and keeps its own number.
      {1, kBase + 1, kOther},
      {25, kBase + 25, kOther},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.code);
    const ShellFailure failure = ShellFailureFor(c.code, "Tessaly");
    EXPECT_EQ(failure.number, c.number);
    EXPECT_EQ(failure.description, c.text);
    EXPECT_EQ(failure.source, "Tessaly.GShell");
  }
}

class ShellOpenTest : public ::testing::Test {
 protected:
  RecordingShell shell_;
  FixedProgram program_;
};

TEST_F(ShellOpenTest, ShowCommandAndPartsPassedOn) {
  struct Case {
    const char* file;
    std::int32_t show;
    const char* parameters;
    const char* directory;
    std::int32_t expectedShow;
  };
  const Case cases[] = {
      // A program given parameters starts hidden, whatever case ".exe" is in.
      {"C:\\Tools\\Up.EXE", show::kDefault, "a", "", show::kHide},
      {"C:\\Tools\\up.Exe", 3, "", "C:\\Temp", show::kHide},
      // The test is on the text anywhere, not on the ending.
      {"C:\\my.exe.d\\readme.txt", show::kNormal, "a", "", show::kHide},
      // A document keeps the show command it was given.
      {"C:\\Docs\\letter.txt", show::kNormal, "-p", "", show::kNormal},
      {"C:\\Docs\\letter.txt", 3, "", "C:\\Docs", 3},
      // With neither parameters nor directory the window always shows normally.
      {"C:\\Tools\\up.exe", show::kHide, "", "", show::kNormal},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.file + std::string(" ") + c.parameters + "|" + c.directory);
    RecordingShell shell;
    ASSERT_TRUE(ShellOpen(shell, program_, c.file, c.show, c.parameters, c.directory, "open", 7));
    ASSERT_EQ(shell.requests().size(), 1u);
    const ShellRequest expected{7, "open", c.file, c.parameters, c.directory, c.expectedShow};
    EXPECT_EQ(shell.requests()[0], expected);
  }
}

TEST_F(ShellOpenTest, AnswersUpTo32FailWithAReportAndAboveSucceed) {
  struct Case {
    std::int32_t answer;
    bool accepted;
  };
  const Case cases[] = {{0, false}, {1, false}, {31, false}, {32, false},
                        {33, true}, {42, true}, {-1, true}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.answer);
    shell_.SetAnswer(c.answer);
    ShellFailure failure{-5, "untouched", "untouched"};
    EXPECT_EQ(ShellOpen(shell_, program_, "C:\\a.txt", 1, "", "", "open", 0, &failure),
              c.accepted);
    if (c.accepted) {
      EXPECT_EQ(failure.source, "untouched");
    } else {
      EXPECT_EQ(failure, ShellFailureFor(c.answer, "Tessaly"));
    }
  }
}

TEST_F(ShellOpenTest, ReportIsSourcedFromTheProgramsFileName) {
  program_.fileName = "renamer";
  shell_.SetAnswer(2);
  ShellFailure failure;
  EXPECT_FALSE(ShellOpen(shell_, program_, "C:\\gone.txt", 1, "", "", "open", 0, &failure));
  EXPECT_EQ(failure.source, "renamer.GShell");
  EXPECT_EQ(failure.number, 53);
  // Without a place for the report the answer is the same.
  EXPECT_FALSE(ShellOpen(shell_, program_, "C:\\gone.txt", 1, "", "", "open", 0));
}

}  // namespace
}  // namespace tessaly
