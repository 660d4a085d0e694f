#ifndef TESSALY_WIZARD_TESSALY_FORM_H_
#define TESSALY_WIZARD_TESSALY_FORM_H_

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/buttons.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/rich_text_box.h"
#include "controls/text_box.h"
#include "conversion/conversion_options.h"
#include "files/drop_data.h"
#include "journal/run_journal.h"
#include "lists/stored_lists.h"
#include "wizard/change_log.h"
#include "wizard/progress_form.h"
#include "wizard/wizard_services.h"

namespace tessaly {

// The wizard: five steps, 0 to 4, on one form. Its controls are its state.
// Every way between steps goes through ShowStep, and a step's work is done
// when it is entered; leaving a step does nothing.
class fTessaly : public Form {
 public:
  static constexpr int kStepCount = 5;

  explicit fTessaly(const WizardServices& services);
  ~fTessaly() override;

  // Public methods, as other forms and the command line call them.
  void UpdateList();
  int findInListBox(const ListBox& searchList, std::string_view searchKey) const;

  // `path` as a person on this platform reads it, for the views.
  std::string ShownPath(std::string_view path) const { return services_.fileSystem.Shown(path); }
  void removeSelected(ListBox& removeList);

  void ShowStep(std::int32_t index);
  // Ends the program: the form goes, nothing is saved. The front-end leaves
  // its event loop when `programEnded` is emitted.
  void EndProgram();
  bool ended() const { return ended_; }
  // The command line as the program was given it, read at load; with the
  // files given apart, the switches alone.
  const std::string& commandLine() const { return commandLine_; }
  // Files and switches apart, where a shell has split the words: at load the
  // files (model paths) go into the list one by one by the add rule, in
  // their order (a folder's files as Add Directory takes them), and only
  // `switches` is read as the command line, which then holds no file part.
  // Call before Load.
  void GiveFilesApart(std::vector<std::string> files, std::string switches);
  // Makes this a dry run; call before Load. The steps stop at the preview,
  // step 4 is never entered, and no other program is started (no update
  // check), so the command line's work can be shown without being done.
  void MakeDryRun() { dryRun_ = true; }
  // A dry run whose steps were to go on into the run (step 4).
  bool dryRunHeldBackTheRun() const { return runHeldBack_; }
  Signal programEnded;

  // Handlers a view forwards a person's actions to.
  void cmdNext_Click();
  void cmdBack_Click();
  void cmdCancel_Click();
  void lblStep_Click(int index);
  void cmdAddFiles_Click();
  void cmdAddDirectory_Click();
  void cmdRemove_Click();
  void cmdClear_Click();
  // The drop handlers of step 1's list, frame, heading, text and page.
  void AddDroppedFiles(const DropData& data);
  void cmdReplaceAdv_Click();
  void cmdUnwantedFormat_Click();
  void cmdSelectFolder_Click();
  // Takes back the run of step 4, as the console's undo does, and shows
  // the undo's log in the run's place; offered once, after a run that
  // changed the disk and was journaled in full.
  void cmdUndo_Click();
  // Paths the last add could not take because the list was full, for the
  // front-end to report.
  int refusedForLimit() const { return refusedForLimit_; }
  // The paths of the command line that named neither a file nor a folder
  // (empty ones aside),
  // in their order; the wizard leaves them out without a word, a console
  // names them.
  const std::vector<std::string>& leftOut() const { return leftOut_; }
  // Emitted at the end of an add that the full list could not take whole.
  Signal listFull;

  std::int32_t CurrentStep = 0;
  std::string SamplePath1;
  std::string SamplePath2;
  std::string SamplePath3;

  // The strip of step labels and the pages.
  std::array<Label, kStepCount> lblStep;
  std::array<Label, kStepCount> pStep;
  CommandButton cmdNext;
  CommandButton cmdBack;
  CommandButton cmdCancel;

  // Step 0 and 1.
  Label lWelcome;
  Label lblText1;  // lblText(1)
  Label Label11;   // the heading of step 1
  ListBox lstFiles{true};
  ListBox lstFilesC;
  CommandButton cmdAddFiles;
  CommandButton cmdAddDirectory;
  CheckBox chkSubDirectories;
  CommandButton cmdRemove;
  CommandButton cmdClear;
  Label lStat;

  // Step 2.
  std::array<ComboBox, 8> cboBatch;
  CommandButton cmdReplaceAdv;
  CommandButton cmdReplaceAdv2;
  CommandButton cmdUnwantedFormat;
  CheckBox chkShortExtension;
  CheckBox chkLongExtension;
  CheckBox chkRemoveDoubleSpace;
  CheckBox chkExtra;
  CheckBox chkCapitalize;
  CheckBox chkRemoveu;
  CheckBox chkLowercase;
  CheckBox chkAllowSpaces;
  CheckBox chkFixSpacing;
  CheckBox chkRemoveNumbers;
  CheckBox chkUpperCase;
  CheckBox chkRealFiles;
  CheckBox chkIncludePaths;
  CheckBox chkFormatting;
  TextBox txtExample;

  // Step 3.
  Label Frame1;
  OptionButton optMoveSameFolder;
  OptionButton optMoveNewFolder;
  CommandButton cmdSelectFolder;
  Label lFolder;
  Label pFolderPath;
  Label lInfoPath;
  RichTextBox tOutput;

  // Step 4.
  RichTextBox tLog;
  CommandButton cmdUndo;
  // What became of each file in the last rename run, in the log's order.
  const std::vector<Outcome>& outcomes() const { return outcomes_; }
  // The last file of the run that got its outcome: its two paths and what
  // became of it. The lists hold the paths of the others.
  struct FileOutcome {
    std::string oldPath;
    std::string newPath;
    Outcome outcome = Outcome::kNoChange;
  };
  const FileOutcome& lastOutcome() const { return lastOutcome_; }
  // Emitted as each file of a rename run gets its outcome, which is then
  // lastOutcome().
  Signal fileDone;
  // Whether the last rename run ended early at a request to stop (see
  // WizardServices::stops): after the file under way, with the log of the
  // files done and its foot, the journal left unfinished, the window
  // still there.
  bool stopped() const { return stopped_; }
  // The journal of the last rename run, or null if runs are not recorded.
  const RunJournal* journal() const { return journal_.get(); }

  // The progress window while a loop runs, else null.
  fProgress* progress() const { return progress_.get(); }

 protected:
  void Form_Load() override;
  void Form_QueryUnload() override {}

 private:
  void WireControls();
  void EnterStep(std::int32_t index);
  void FillPlacements();
  void BuildPreview();
  // Room enough for the new paths of every listed file, about.
  std::size_t NewPathBytes() const;
  void RunRenames();
  bool RunCanBeUndone() const;
  Outcome RenameOneFile(const std::string& oldPath, const std::string& newPath);
  Outcome TwoStageRename(const std::string& oldPath, const std::string& newPath);
  Outcome DirectRoad(const std::string& oldPath, const std::string& newPath);
  // What the disk shows after the direct road's move.
  Outcome DirectRoadOutcome(const std::string& oldPath, const std::string& newPath) const;

  // Example output and the rules that tie the options together.
  void ShowExample();
  void cboBatch_Change(int index);
  void cboBatch_Click(int index) { cboBatch_Change(index); }
  void chkRealFiles_Click();
  void chkUpperCase_Click();
  void chkLowercase_Click();
  void chkLongExtension_Click();
  void chkShortExtension_Click();
  void chkRemoveu_Click();
  void chkAllowSpaces_Click();
  void ShowListDialog(Form& dialog);
  void ShowReplaceDialog();
  void ShowFormattingDialog();

  void optMoveSameFolder_Click();
  void optMoveNewFolder_Click();

  bool FileExists(std::string_view path) const;
  // Whether the disk takes both paths to one entry.
  bool SameEntry(std::string_view a, std::string_view b) const;
  void RenameFile(const std::string& source, const std::string& target);
  // The move of RenameFile, journaled, and the removal of a source it left
  // behind; with `onlyIfFree`, a move that takes no name an entry holds.
  RenameAnswer MoveFile(const std::string& source, const std::string& target, bool onlyIfFree);

  CheckBox* RememberedCheckBox(std::string_view name);
  void LoadWizardSettings();
  void SaveWizardSettings();
  void ProcessCommandLine();

  ConversionOptions CurrentOptions() const;
  // One conversion with the controls as they stand now, counting on serial.
  std::string Convert(std::string_view path);
  void SetSamplePaths(std::string_view one, std::string_view two, std::string_view three);
  void OpenProgress(std::string_view caption);
  void CloseProgress(std::int32_t total);
  void ClearResults();
  bool CommandLineHolds(std::string_view text) const;
  void AddToList(std::string path);
  // The files of `folder` as Add Directory takes them: its sub-folders'
  // too when "Include sub-directories" is ticked.
  void AddFolderFiles(const std::string& folder);
  // A path of the command line: a file by the add rule, a folder's files,
  // or noted in leftOut.
  void AddGivenPath(const std::string& path);
  // UpdateList, then word of any path the full list refused.
  void FinishAdding();

  WizardServices services_;
  StoredLists lists_;
  std::string commandLine_;
  bool filesApart_ = false;
  std::vector<std::string> givenFiles_;
  std::vector<Outcome> outcomes_;
  FileOutcome lastOutcome_;
  std::unique_ptr<RunJournal> journal_;
  int journalFile_ = 0;  // the number of the file being renamed, for its records
  std::int32_t serial_ = 0;
  bool PlacementsFilled = false;
  bool stepRunning_ = false;
  bool ended_ = false;
  bool stopped_ = false;
  bool dryRun_ = false;
  bool runHeldBack_ = false;
  int refusedForLimit_ = 0;
  std::vector<std::string> leftOut_;
  std::unique_ptr<fProgress> progress_;
};

}  // namespace tessaly

#endif  // TESSALY_WIZARD_TESSALY_FORM_H_
