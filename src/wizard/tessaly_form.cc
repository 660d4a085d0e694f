#include "wizard/tessaly_form.h"

#include "conversion/name_converter.h"
#include "conversion/placement.h"
#include "conversion/sample_paths.h"
#include "system/product_record.h"
#include "system/update_check.h"
#include "wizard/remembered_boxes.h"
#include "wizard/wizard_texts.h"

namespace tessaly {

fTessaly::fTessaly(const WizardServices& services)
    : Form("fTessaly", ""), services_(services), lists_(services.store, services.ui) {
  // Two paths are one entry of the list when the file system takes them
  // for one name.
  lstFiles.SetSameEntryKey([&files = services.fileSystem](std::string_view path) {
    return files.SameNameKey(path);
  });
  for (int i = 0; i < kStepCount; ++i) {
    lblStep[i].SetCaption(std::string(kStepLabels[i]));
    pStep[i].SetCaption(std::string(kStepHeadings[i]));
    pStep[i].SetVisible(false);
  }
  cmdNext.SetCaption(std::string(kNextCaption));
  cmdBack.SetCaption("< Back");
  cmdCancel.SetCaption("Cancel");
  Label11.SetCaption(" File Selection");
  cmdAddFiles.SetCaption("Add &Files");
  cmdAddDirectory.SetCaption("Add &Directory");
  chkSubDirectories.SetCaption("Include sub-directories");
  cmdRemove.SetCaption("&Remove Selected Files");
  cmdClear.SetCaption("Clear List");
  for (ComboBox& box : cboBatch) box.SetText("Combo1");
  for (CommandButton* dots : {&cmdReplaceAdv, &cmdReplaceAdv2, &cmdUnwantedFormat}) {
    dots->SetCaption("...");
  }
  cmdReplaceAdv.SetVisible(false);
  cmdReplaceAdv2.SetVisible(false);
  for (const RememberedBox& remembered : kRememberedBoxes) {
    CheckBox& box = this->*remembered.box;
    box.SetCaption(std::string(remembered.caption));
    box.SetValue(remembered.defaultState);  // no rule is wired yet
  }
  Frame1.SetCaption("Root Destination Folder");
  optMoveSameFolder.SetCaption("Rename into same folder");
  optMoveSameFolder.SetValue(true);
  optMoveNewFolder.SetCaption("Move to new folder");
  cmdSelectFolder.SetCaption("Browse...");
  lInfoPath.SetCaption(std::string(kIncludePathInfo));
  pFolderPath.SetVisible(false);
  cmdUndo.SetCaption("Undo");
  cmdUndo.SetVisible(false);
  WireControls();
}

fTessaly::~fTessaly() = default;

void fTessaly::WireControls() {
  cmdNext.onClick = [this] { cmdNext_Click(); };
  cmdBack.onClick = [this] { cmdBack_Click(); };
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
  for (int i = 0; i < kStepCount; ++i) lblStep[i].onClick = [this, i] { lblStep_Click(i); };
  cmdAddFiles.onClick = [this] { cmdAddFiles_Click(); };
  cmdAddDirectory.onClick = [this] { cmdAddDirectory_Click(); };
  cmdRemove.onClick = [this] { cmdRemove_Click(); };
  cmdClear.onClick = [this] { cmdClear_Click(); };
  for (int i = 0; i < static_cast<int>(cboBatch.size()); ++i) {
    cboBatch[i].onChange = [this, i] { cboBatch_Change(i); };
    cboBatch[i].onClick = [this, i] { cboBatch_Click(i); };
  }
  cmdReplaceAdv.onClick = [this] { cmdReplaceAdv_Click(); };
  cmdReplaceAdv2.onClick = [this] { cmdReplaceAdv_Click(); };
  cmdUnwantedFormat.onClick = [this] { cmdUnwantedFormat_Click(); };
  chkUpperCase.onClick = [this] { chkUpperCase_Click(); };
  chkLowercase.onClick = [this] { chkLowercase_Click(); };
  chkLongExtension.onClick = [this] { chkLongExtension_Click(); };
  chkShortExtension.onClick = [this] { chkShortExtension_Click(); };
  chkRemoveu.onClick = [this] { chkRemoveu_Click(); };
  chkAllowSpaces.onClick = [this] { chkAllowSpaces_Click(); };
  chkRealFiles.onClick = [this] { chkRealFiles_Click(); };
  for (CheckBox* plain : {&chkCapitalize, &chkExtra, &chkFixSpacing, &chkFormatting,
                          &chkIncludePaths, &chkRemoveDoubleSpace, &chkRemoveNumbers}) {
    plain->onClick = [this] { ShowExample(); };
  }
  // The two options are one group: choosing one clears the other.
  optMoveSameFolder.onClick = [this] {
    optMoveNewFolder.SetValue(false);
    optMoveSameFolder_Click();
  };
  optMoveNewFolder.onClick = [this] {
    optMoveSameFolder.SetValue(false);
    optMoveNewFolder_Click();
  };
  cmdSelectFolder.onClick = [this] { cmdSelectFolder_Click(); };
  cmdUndo.onClick = [this] { cmdUndo_Click(); };
}

void fTessaly::Form_Load() {
  RecordProduct(services_.store, services_.program, services_.shortPaths, services_.clock, "*.*");
  CurrentStep = 0;
  ShowStep(0);
  SetSamplePaths(kBuiltInSamples[0], kBuiltInSamples[1], kBuiltInSamples[2]);
  const ProgramVersion version = services_.program.Version();
  SetCaption(services_.program.Title() + " - v" + std::to_string(version.major) + "." +
             std::to_string(version.minor) + "." + std::to_string(version.revision));
  if (!dryRun_) {
    CheckForUpdates(services_.store, services_.network, services_.shell, services_.clock,
                    services_.program, services_.fileSystem);
  }
  if (!filesApart_) commandLine_ = services_.program.CommandLine();
  if (!commandLine_.empty() || !givenFiles_.empty()) ProcessCommandLine();
}

void fTessaly::GiveFilesApart(std::vector<std::string> files, std::string switches) {
  filesApart_ = true;
  givenFiles_ = std::move(files);
  commandLine_ = std::move(switches);
}

void fTessaly::EndProgram() {
  if (ended_) return;
  ended_ = true;
  if (progress_) progress_->Unload();
  Unload();
  programEnded.Emit();
}

void fTessaly::cmdNext_Click() {
  if (stepRunning_) return;
  CurrentStep = CurrentStep + 1;
  ShowStep(CurrentStep);
}

void fTessaly::cmdBack_Click() {
  if (stepRunning_) return;
  CurrentStep = CurrentStep - 1;
  ShowStep(CurrentStep);
}

void fTessaly::cmdCancel_Click() { EndProgram(); }

void fTessaly::lblStep_Click(int index) {
  if (index < kStepCount - 1 && cmdNext.visible()) ShowStep(index);
}

void fTessaly::ShowStep(std::int32_t index) {
  // A click that arrives while a step's loop lets events run would enter a
  // step inside a step; it is dropped. So is anything after the end.
  if (stepRunning_ || ended_ || index < 0 || index >= kStepCount) return;
  // A dry run shows the preview in the run's place; the front-end tells
  // what the run would do from it.
  if (dryRun_ && index == kStepCount - 1) {
    runHeldBack_ = true;
    return;
  }
  for (Label& page : pStep) page.SetVisible(false);
  for (int i = 0; i < kStepCount - 1; ++i) lblStep[i].SetBold(false);
  CurrentStep = index;
  lblStep[index].SetBold(true);
  cmdBack.SetEnabled(true);
  cmdNext.SetEnabled(true);
  cmdNext.SetCaption(std::string(kNextCaption));
  EnterStep(index);
}

void fTessaly::EnterStep(std::int32_t index) {
  pStep[index].SetVisible(true);
  switch (index) {
    case 0:
      cmdBack.SetEnabled(false);
      lWelcome.SetCaption(WelcomeText(services_.program.Title()));
      break;
    case 1:
      lblText1.SetCaption(std::string(kInstructionText));
      break;
    case 2:
      if (!PlacementsFilled) FillPlacements();
      if (!CommandLineHolds("/settings:")) LoadWizardSettings();
      ShowExample();
      break;
    case 3:
      // A jump here before step 2 was ever entered would convert with the
      // drop-downs' initial text; fill them as step 2 would.
      if (!PlacementsFilled) FillPlacements();
      cmdNext.SetCaption(std::string(kFinishCaption));
      cmdNext.SetEnabled(false);
      BuildPreview();
      if (!ended_) SaveWizardSettings();
      break;
    case 4:
      if (!PlacementsFilled) FillPlacements();
      cmdBack.SetVisible(false);
      cmdNext.SetVisible(false);
      RunRenames();
      if (ended_) break;
      cmdCancel.SetCaption("Finished");
      cmdUndo.SetVisible(RunCanBeUndone());
      break;
  }
}

void fTessaly::FillPlacements() {
  for (int i = 0; i < static_cast<int>(cboBatch.size()); ++i) {
    ComboBox& box = cboBatch[i];
    if (!CommandLineHolds("/placement" + std::to_string(i + 1))) box.SetText("");
    box.ClearItems();
    for (std::string_view item : kPlacementItems) box.AddItem(std::string(item));
  }
  for (int i : {6, 7}) cboBatch[i].InsertItem(0, "(Advanced)");
  if (!CommandLineHolds("/placement1")) cboBatch[0].SetText("Document Name");
  if (!CommandLineHolds("/placement2")) cboBatch[1].SetText("extension");
  PlacementsFilled = true;
}

bool fTessaly::CommandLineHolds(std::string_view text) const {
  return commandLine_.find(text) != std::string::npos;
}

ConversionOptions fTessaly::CurrentOptions() const {
  ConversionOptions options;
  for (std::size_t i = 0; i < cboBatch.size(); ++i) options.cboBatch[i] = cboBatch[i].text();
  for (const RememberedBox& remembered : kRememberedBoxes) {
    options.*remembered.option = (this->*remembered.box).value();
  }
  options.optMoveSameFolder = optMoveSameFolder.value();
  options.optMoveNewFolder = optMoveNewFolder.value();
  options.lFolder = lFolder.caption();
  options.serial = serial_;
  return options;
}

std::string fTessaly::Convert(std::string_view path) {
  ConversionOptions options = CurrentOptions();
  const NameConverter converter(
      {services_.clock, services_.locale, services_.fileSystem, &lists_});
  // The name the disk will hold, for the preview, the run and the log alike.
  std::string converted = services_.fileSystem.StoredPath(converter.ConvertName(options, path));
  serial_ = options.serial;
  pFolderPath.SetVisible(options.pFolderPathVisible);
  return converted;
}

}  // namespace tessaly
