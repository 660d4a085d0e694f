// Step 3: the destination choice and the preview of every new path.

#include "conversion/path_routines.h"
#include "files/folder_browser.h"
#include "wizard/tessaly_form.h"
#include "wizard/wizard_texts.h"

namespace tessaly {

void fTessaly::ClearResults() {
  services_.ui.LetPendingEventsRun();
  lstFilesC.Clear();
  tOutput.SetText("");
  tOutput.SetVisible(false);
}

void fTessaly::OpenProgress(std::string_view caption) {
  progress_ = std::make_unique<fProgress>(services_.ui, services_.locale);
  progress_->Load();
  services_.ui.Show(*progress_);
  progress_->SetCaption(std::string(caption));
}

void fTessaly::CloseProgress(std::int32_t total) {
  progress_->setvalue(total);
  progress_->Unload();
  progress_.reset();
}

std::size_t fTessaly::NewPathBytes() const {
  // New paths are about as long as old ones: room for them all at once.
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < lstFiles.ListCount(); ++i) bytes += lstFiles.List(i).size() * 5 / 4;
  return bytes;
}

void fTessaly::BuildPreview() {
  ClearResults();
  if (ended_ || lstFiles.ListCount() == 0) return;
  const auto n = static_cast<std::int32_t>(lstFiles.ListCount());
  stepRunning_ = true;
  OpenProgress(kPreviewProgressCaption);
  tOutput.SetText("Rename Files Preview:" + std::string(kLineEnd));
  const std::size_t newBytes = NewPathBytes();
  lstFilesC.Reserve(static_cast<std::size_t>(n), newBytes);
  tOutput.Reserve(tOutput.text().size() + newBytes + static_cast<std::size_t>(n) * 8);
  tOutput.SetSelStart(tOutput.Length());
  progress_->start(0, n);
  serial_ = 0;
  // The list may shrink under the loop while events run; stop, not crash.
  std::string line;
  for (std::int32_t i = 0; i < n && !ended_ && i < static_cast<std::int32_t>(lstFiles.ListCount()); ++i) {
    lstFilesC.AddItem(Convert(lstFiles.List(i)));
    line.assign("    ");
    services_.fileSystem.AppendShown(lstFilesC.List(i), line);
    line += kLineEnd;
    tOutput.SetSelText(line);
    progress_->setvalue(i + 1);
  }
  stepRunning_ = false;
  if (ended_) return;
  tOutput.SetVisible(true);
  CloseProgress(n);
  cmdNext.SetEnabled(true);
}

void fTessaly::optMoveSameFolder_Click() { ShowStep(3); }

void fTessaly::optMoveNewFolder_Click() {
  if (DirectoryExists(lFolder.caption(), services_.fileSystem)) {
    ShowStep(3);
  } else {
    cmdSelectFolder_Click();
  }
}

void fTessaly::cmdSelectFolder_Click() {
  const std::string folder =
      BrowseForFolder(services_.ui, "Select folder to move files to...", lFolder.caption());
  if (DirectoryExists(folder, services_.fileSystem)) {
    lFolder.SetCaption(folder);
    if (optMoveNewFolder.value()) {
      optMoveNewFolder_Click();
    } else {
      optMoveNewFolder.SetValue(true);  // its click enters step 3 again
    }
  } else if (optMoveSameFolder.value()) {
    optMoveSameFolder_Click();
  } else {
    optMoveSameFolder.SetValue(true);
  }
}

}  // namespace tessaly
