#include <gmock/gmock.h>

#include "platform/memory/fixed_clock.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/scripted_ui.h"
#include "text/utf8.h"
#include "wizard/change_log.h"
#include "wizard/progress_form.h"

namespace tessaly {
namespace {

TEST(PercentText, RoundsHalfToEvenAndDropsTrailingZeros) {
  const struct {
    double current, total;
    const char *separator, *text;
  } cases[] = {
      {2, 3, ".", "66.67%"}, {3, 3, ".", "100%"}, {1, 8, ",", "12,5%"},
      {1, 32, ".", "3.12%"}, {3, 32, ".", "9.38%"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(PercentText(c.current, c.total, c.separator), c.text) << c.current << "/" << c.total;
  }
}

TEST(ProgressForm, BarWidthAndCaptionFollowTheTags) {
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
  EXPECT_EQ(progress.lTotal.tag(), "8");
  EXPECT_EQ(ui.pendingEventRuns(), 3);
}

TEST(ChangeLog, FolderIsCutToSixCharactersWithTheMarkAlways) {
  ScriptedUi ui;
  FixedLocale locale(".", "-", ",");  // its separators shape dates and times
  FixedClock clock(CivilDateTime{{2026, 11, 18}, 14, 2, 9});
  RichTextBox box;
  // Paths shown as on POSIX: the line is cut in the model, then shown.
  MemoryFileSystem paths(MemoryFileSystem::LetterCase::kExact, MemoryFileSystem::ShownForm::kPosix);
  ChangeLog log(box, clock, locale, ui, paths);
  log.WriteHead(3, 100);
  log.WriteFileLine("c:\\graphics\\common\\a.txt", "c:\\graphics\\common\\b.txt",
                    Outcome::kCompleted);
  log.WriteFileLine("c:\\a.txt", "AC/DC", Outcome::kNoChange);
  log.WriteFileLine("c:\\Ünïcode Ça\\x", "c:\\Ünïcode Ça\\y", Outcome::kFailedExists);
  RunCounters counters;
  counters.Count(Outcome::kCompleted);
  counters.Count(Outcome::kNoChange);
  counters.Count(Outcome::kFailedExists);
  log.WriteFoot(counters);
  EXPECT_EQ(box.text(),
            "Renaming Started at: 11.18.2026 - 14-02-09\r\n\r\n3 total files.\r\n\r\n"
            "Renamed Files - Log:\r\n"
            "14-02-09 - c:/gra.../a.txt > c:/gra.../b.txt (Completed)\r\n"
            "14-02-09 - c:/.../a.txt > .../AC\\DC (No Change}\r\n"
            "14-02-09 - c:/Ünï.../x > c:/Ünï.../y (Failed! - File Already Exists)\r\n"
            "\r\n\r\n1 files where renamed successfully.\r\n1 files remain unchanged.\r\n"
            "1 files failed to be renamed.\r\n\r\nRenaming Completed at: 11.18.2026 - 14-02-09");
  EXPECT_EQ(box.rightMargin(), 400);
  ASSERT_EQ(box.spans().size(), 3u);
  EXPECT_EQ(box.spans()[2].colour, (Rgb{255, 0, 0}));
  // Each span covers its line exactly, line end included.
  const std::size_t headLength = text::CharCount(
      "Renaming Started at: 11.18.2026 - 14-02-09\r\n\r\n3 total files.\r\n\r\nRenamed Files - Log:\r\n");
  EXPECT_EQ(box.spans()[0].start, headLength);
  EXPECT_EQ(box.spans()[1].start, box.spans()[0].start + box.spans()[0].length);
  EXPECT_EQ(box.spans()[2].length,
            text::CharCount("14-02-09 - c:/Ünï.../x > c:/Ünï.../y (Failed! - File Already Exists)\r\n"));
}

TEST(RichTextBox, InsertingInsideColouredTextMovesAndCutsRuns) {
  RichTextBox box;
  box.SetText("abcdef");
  box.SetSelStart(2);
  box.SetSelLength(2);
  box.SetSelColor({255, 0, 0});  // "cd"
  box.SetSelStart(0);
  box.SetSelText("XY");
  EXPECT_EQ(box.text(), "XYabcdef");
  EXPECT_EQ(box.ColourAt(4), (Rgb{255, 0, 0}));
  EXPECT_EQ(box.ColourAt(6), (Rgb{}));
  box.SetSelStart(5);
  box.SetSelLength(2);  // "de": half of the run goes
  box.SetSelText("");
  EXPECT_EQ(box.text(), "XYabcf");
  ASSERT_EQ(box.spans().size(), 1u);
  EXPECT_EQ(box.spans()[0], (ColourSpan{4, 1, {255, 0, 0}}));
}

}  // namespace
}  // namespace tessaly
