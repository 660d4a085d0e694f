// Run journals and undo: a journal's lines survive any name and any cut;
// runs of the wizard over memory backends taken back file by file.

#include <gmock/gmock.h>

#include "journal/journal_line.h"
#include "journal/run_history.h"
#include "platform/memory/memory_file_system.h"
#include "text/text_ops.h"
#include "wizard/memory_world.h"
#include "wizard/undo.h"
#include "wizard/undo_log.h"

namespace tessaly {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Fields = std::vector<std::string>;

TEST(JournalLine, EveryFieldComesBackAndACutOrSpoiltLineIsLeftOut) {
  const std::string lines[] = {
      journal::Line({"move", "0", "C:\\a b\\x.txt"}),
      journal::Line({"new\nline", "tab\there", "100%", "", "\xff\xfe stray", "ünï", "\xc2\x85", "\x1b[2J"}),
      journal::Line({"end"}),
  };
  const std::vector<Fields> fields = {
      {"move", "0", "C:\\a b\\x.txt"},
      {"new\nline", "tab\there", "100%", "", "\xff\xfe stray", "ünï", "\xc2\x85", "\x1b[2J"},
      {"end"}};
  const std::string text = lines[0] + lines[1] + lines[2];
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3);  // one line a record, whatever it holds
  EXPECT_THAT(lines[1], HasSubstr(" ünï "));                // readable where it can be
  // Cut anywhere, as by a kill: the whole lines before the cut, no more.
  for (std::size_t cut = 0; cut <= text.size(); ++cut) {
    const std::string_view kept = std::string_view(text).substr(0, cut);
    const auto whole = static_cast<std::size_t>(std::count(kept.begin(), kept.end(), '\n'));
    ASSERT_EQ(journal::ReadLines(kept), std::vector<Fields>(fields.begin(), fields.begin() + whole))
        << cut;
  }
  // A spoilt byte anywhere in a line loses that line alone.
  for (std::size_t at = 0; at + 1 < lines[1].size(); ++at) {
    std::string spoilt = text;
    spoilt[lines[0].size() + at] ^= 1;
    ASSERT_EQ(journal::ReadLines(spoilt), (std::vector<Fields>{fields[0], fields[2]})) << at;
  }
}

class UndoTest : public ::testing::Test {
 protected:
  // Renames `listed` (each file holding its own path) to `newName` through
  // the wizard, into the folder it names if any, answering each question
  // Yes or No.
  void Run(const std::vector<std::string>& listed, const std::string& newName, bool yes) {
    world.ui = ScriptedUi();
    fTessaly& wizard = world.Start();
    DropData drop;
    for (const std::string& path : listed) {
      files.SetContents(path, path);
      drop.files.push_back(path);
    }
    wizard.AddDroppedFiles(drop);
    wizard.lblStep[2].Click();
    const std::size_t folder = newName.rfind('\\');
    wizard.cboBatch[0].SetText(newName.substr(folder + 1));
    wizard.cboBatch[1].SetText("");
    wizard.cmdNext.Click();
    if (folder != std::string::npos) {
      world.ui.QueueFolder(newName.substr(0, folder));
      wizard.optMoveNewFolder.SetValue(true);
    }
    for (int i = 0; i < 4; ++i) world.ui.QueueAnswer(yes ? MessageAnswer::kYes : MessageAnswer::kNo);
    wizard.cmdNext.Click();
  }
  // Undoes the run `name` (the last one not undone if empty), as
  // "from > to (Outcome)" lines.
  std::vector<std::string> Undo(const std::string& name = "", bool dryRun = false) {
    const std::vector<RunSummary> history = RunHistory(world.journals);
    const RunSummary* run = name.empty() ? LastRunToUndo(history) : FindRun(history, name);
    if (run == nullptr) return {"no run"};
    RunJournal record(world.journals, world.clock, run->name);
    lines_ = UndoRun(run->content, files, dryRun ? nullptr : &record);
    std::vector<std::string> shown;
    for (const UndoLine& line : lines_) {
      shown.push_back(line.from + " > " + line.to + " " + std::string(UndoOutcomeText(line.outcome)));
    }
    return shown;
  }
  std::string& LastJournal() { return world.journals.Text(world.form->journal()->name()); }
  std::vector<std::string> Disk() const { return files.FilesAndContents(); }

  MemoryFileSystem files;
  MemoryWorld world{files};
  std::vector<UndoLine> lines_;
};

// One run a row, then what happens before its undo, what the undo says of
// each file and what the disk holds after it. Nothing is ever replaced.
TEST_F(UndoTest, EachFileGoesBackOnlyIfItIsStillTheFileTheRunMoved) {
  const struct {
    const char* what;
    std::vector<std::string> disk;  // besides the listed files, "path=contents"
    std::vector<std::string> listed;
    const char* newName;
    bool yes;
    // Before the undo: 'T' another file takes the old name, 'W' the renamed
    // file is written to, 'R' it is removed, 'K' the run was killed before
    // its last result was written, 'F' killed with the move refused, 'N'
    // the undo is a dry run.
    char then;
    std::vector<std::string> lines, after;
  } rows[] = {
      {"restored", {}, {"C:\\u\\a.txt"}, "b.txt", false, ' ',
       {"C:\\u\\b.txt > C:\\u\\a.txt (Restored)"}, {"C:\\u\\a.txt=C:\\u\\a.txt"}},
      {"old name taken", {}, {"C:\\u\\a.txt"}, "b.txt", false, 'T',
       {"C:\\u\\b.txt > C:\\u\\a.txt (Not Restored - Old Name Taken)"},
       {"C:\\u\\a.txt=theirs", "C:\\u\\b.txt=C:\\u\\a.txt"}},
      {"changed", {}, {"C:\\u\\a.txt"}, "b.txt", false, 'W',
       {"C:\\u\\b.txt > C:\\u\\a.txt (Not Restored - File Changed)"}, {"C:\\u\\b.txt=changed"}},
      {"missing", {}, {"C:\\u\\a.txt"}, "b.txt", false, 'R',
       {"C:\\u\\b.txt > C:\\u\\a.txt (Not Restored - File Not Found)"}, {}},
      // Left under its temporary name by a No, it goes back from there.
      {"two stages, No", {"C:\\u\\b.txt=theirs"}, {"C:\\u\\a.txt"}, "b.txt", false, ' ',
       {"C:\\u\\b.txt.temp > C:\\u\\a.txt (Restored)"},
       {"C:\\u\\a.txt=C:\\u\\a.txt", "C:\\u\\b.txt=theirs"}},
      {"two stages, Yes", {"C:\\u\\b.txt=theirs"}, {"C:\\u\\a.txt"}, "b.txt", true, ' ',
       {"C:\\u\\b.txt > C:\\u\\a.txt (Restored)", "C:\\u\\b.txt > C:\\u\\b.txt (Cannot Be Restored - Overwritten)"},
       {"C:\\u\\a.txt=C:\\u\\a.txt"}},
      // A file of the run deleted on Yes is told on its own line.
      {"one new name", {}, {"C:\\s\\1.txt", "C:\\s\\2.txt"}, "same.txt", true, ' ',
       {"C:\\s\\same.txt > C:\\s\\2.txt (Restored)",
        "C:\\s\\same.txt > C:\\s\\1.txt (Cannot Be Restored - Overwritten)"},
       {"C:\\s\\2.txt=C:\\s\\2.txt"}},
      {"other folder", {"D:\\far\\keep=k"}, {"C:\\u\\a.txt"}, "D:\\far\\a.txt", false, ' ',
       {"D:\\far\\a.txt > C:\\u\\a.txt (Restored)"}, {"C:\\u\\a.txt=C:\\u\\a.txt", "D:\\far\\keep=k"}},
      {"case only", {}, {"c:\\k\\A"}, "a", false, ' ', {"c:\\k\\a > c:\\k\\A (Restored)"}, {"c:\\k\\A=c:\\k\\A"}},
      // A kill leaves the last change without its result: the disk tells.
      {"killed after the move", {"C:\\u\\b.txt=theirs"}, {"C:\\u\\a.txt"}, "b.txt", false, 'K',
       {"C:\\u\\b.txt.temp > C:\\u\\a.txt (Restored)"},
       {"C:\\u\\a.txt=C:\\u\\a.txt", "C:\\u\\b.txt=theirs"}},
      {"killed before the move", {}, {"C:\\u\\a.txt"}, "b.txt", false, 'F', {}, {"C:\\u\\a.txt=C:\\u\\a.txt"}},
      {"dry run", {}, {"C:\\u\\a.txt"}, "b.txt", false, 'N',
       {"C:\\u\\b.txt > C:\\u\\a.txt (Would Be Restored)"}, {"C:\\u\\b.txt=C:\\u\\a.txt"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    files = MemoryFileSystem();
    world.journals = MemoryRunJournals();
    for (const std::string& file : row.disk) {
      files.SetContents(file.substr(0, file.find('=')), file.substr(file.find('=') + 1));
    }
    if (row.then == 'F') files.FailNextRename();
    Run(row.listed, row.newName, row.yes);
    const std::string moved(world.form->lstFilesC.List(0));
    if (row.then == 'T') files.SetContents(row.listed[0], "theirs");
    if (row.then == 'W') files.SetContents(moved, "changed");
    if (row.then == 'R') files.Remove(moved);
    if (row.then == 'K' || row.then == 'F') {
      std::string& journal = LastJournal();
      journal.erase(journal.find('\n', journal.rfind("\nmove ") + 1) + 1);  // nothing behind the last move
      journal += "done 1 2";  // but a torn line
    }
    EXPECT_EQ(Undo("", row.then == 'N'), row.lines);
    EXPECT_EQ(Disk(), row.after);
  }
}

TEST_F(UndoTest, AnUndoIsARunThatCanBeUndoneAndTheListSaysWhatBecameOfEach) {
  // Journals older than the run: a full folder loses its oldest.
  for (int i = 0; i < 50; ++i) {
    world.journals.Text("2000-01-01_00-00-" + std::string(i < 10 ? "0" : "") + std::to_string(i)) =
        journal::Line({"tessaly-journal", "1", "run", "2000-01-01", "00:00:00"});
  }
  Run({"C:\\u\\a.txt", "C:\\u\\c.txt"}, "b", false);  // c waits under b.temp
  files.SetContents("C:\\u\\c.txt", "theirs");
  const std::string run = world.form->journal()->name();
  EXPECT_EQ(run, "2026-11-18_14-02-09");
  EXPECT_EQ(world.journals.Names().size(), 50u);
  EXPECT_FALSE(world.journals.Read("2000-01-01_00-00-00"));
  EXPECT_THAT(Undo(), ElementsAre(HasSubstr("(Not Restored - Old Name Taken)"), HasSubstr("(Restored)")));
  RichTextBox log;
  WriteUndoLog(log, lines_, run, world.clock, world.locale, files);
  EXPECT_THAT(log.text(), HasSubstr("2 files to take back from the run 2026-11-18_14-02-09."));
  EXPECT_THAT(log.text(), HasSubstr("14:02:09 - C:\\u\\...\\b > C:\\u\\...\\a.txt (Restored)\r\n"));
  EXPECT_THAT(log.text(), HasSubstr("\r\n1 files were restored.\r\n1 files could not be restored."));
  // Named again once the old name is free, it takes back what is left; a
  // file back already is left alone, and an undo with nothing to move is
  // kept all the same.
  files.Remove("C:\\u\\c.txt");
  EXPECT_THAT(Undo(run), ElementsAre("C:\\u\\b.temp > C:\\u\\c.txt (Restored)"));
  EXPECT_THAT(Undo(run), ::testing::IsEmpty());
  // The undo of the first undo puts a back under its new name.
  EXPECT_THAT(Undo(run + "_02"), ElementsAre("C:\\u\\a.txt > C:\\u\\b (Restored)"));
  EXPECT_EQ(Disk(), (std::vector<std::string>{"C:\\u\\b=C:\\u\\a.txt", "C:\\u\\c.txt=C:\\u\\c.txt"}));
  // A run whose one move failed has nothing to take back.
  files.FailNextRename();
  Run({"C:\\u\\x.txt"}, "y", false);
  std::string states;
  for (const RunSummary& summary : RunHistory(world.journals)) {
    if (!summary.name.starts_with("2026")) continue;
    states += summary.name.substr(19) + ":" + std::to_string(summary.files) + ":" +
              std::string(StateWord(summary.state)) + " ";
  }
  EXPECT_EQ(states, ":2:undone _02:1:undone _03:1:complete _04:0:complete _05:1:complete _06:0:complete ");
  EXPECT_EQ(LastRunToUndo(RunHistory(world.journals)), nullptr);
  // A run cut short shows as such.
  LastJournal().erase(LastJournal().rfind("end"));
  EXPECT_EQ(FindRun(RunHistory(world.journals), run + "_06")->state, RunSummary::State::kInterrupted);
}

// The window's Undo: offered after a run that changed the disk, once; it
// takes that run back as the console does, journaled, its log in the run's.
TEST_F(UndoTest, TheWindowsUndoTakesBackItsOwnRunOnce) {
  files.FailNextRename();
  Run({"C:\\u\\x.txt"}, "y", false);
  EXPECT_FALSE(world.form->cmdUndo.visible());
  // A journal gone before the click: said, and nothing moves.
  Run({"C:\\v\\a.txt"}, "b", false);
  world.journals.Remove(world.form->journal()->name());
  world.form->cmdUndo.Click();
  ASSERT_EQ(world.ui.messages().size(), 1u);
  EXPECT_THAT(world.ui.messages()[0].text, HasSubstr("cannot be read; no file was moved back."));
  Run({"C:\\u\\a.txt", "C:\\u\\c.txt"}, "b", false);  // c waits under b.temp
  fTessaly& wizard = *world.form;
  ASSERT_TRUE(wizard.cmdUndo.visible());
  wizard.cmdUndo.Click();
  EXPECT_EQ(Disk(), (std::vector<std::string>{"C:\\u\\a.txt=C:\\u\\a.txt", "C:\\u\\c.txt=C:\\u\\c.txt",
                                              "C:\\u\\x.txt=C:\\u\\x.txt", "C:\\v\\b=C:\\v\\a.txt"}));
  EXPECT_THAT(wizard.tLog.text(), ::testing::StartsWith("Undo Started at: "));
  EXPECT_THAT(wizard.tLog.text(), HasSubstr("14:02:09 - C:\\u\\...\\b.temp > C:\\u\\...\\c.txt (Restored)\r\n"));
  EXPECT_EQ(wizard.tLog.spans().size(), 2u);
  EXPECT_FALSE(wizard.cmdUndo.visible());
  EXPECT_EQ(LastRunToUndo(RunHistory(world.journals)), nullptr);
}

// A journal that cannot be written changes nothing in the run: the run
// says so, and the files' outcomes are those of a run without one.
TEST_F(UndoTest, AJournalThatCannotBeWrittenLeavesTheRunAsItWas) {
  world.journals.FailWrites();
  Run({"C:\\u\\a.txt"}, "b.txt", false);
  EXPECT_TRUE(world.form->journal()->incomplete());
  EXPECT_FALSE(world.form->cmdUndo.visible());  // it would take back part without a word
  EXPECT_EQ(world.form->outcomes()[0], Outcome::kCompleted);
  EXPECT_EQ(Undo(), (std::vector<std::string>{"no run"}));
}

}  // namespace
}  // namespace tessaly
