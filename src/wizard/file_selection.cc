// Step 1: the one list of files and every way into it.

#include "conversion/path_routines.h"
#include "files/directory_walk.h"
#include "files/file_list.h"
#include "files/folder_browser.h"
#include "files/list_search.h"
#include "files/open_dialog.h"
#include "text/text_ops.h"
#include "wizard/tessaly_form.h"

namespace tessaly {

void fTessaly::UpdateList() {
  lStat.SetCaption(std::to_string(lstFiles.ListCount()) + " files.");
  chkRealFiles_Click();
}

int fTessaly::findInListBox(const ListBox& searchList, std::string_view searchKey) const {
  return tessaly::findInListBox(searchList, searchKey);
}

void fTessaly::removeSelected(ListBox& removeList) { tessaly::removeSelected(removeList); }

void fTessaly::AddToList(std::string path) {
  if (AddToFileList(lstFiles, std::move(path)) == AddResult::kListFull) ++refusedForLimit_;
}

void fTessaly::FinishAdding() {
  UpdateList();
  if (refusedForLimit_ > 0) listFull.Emit();
}

void fTessaly::AddDroppedFiles(const DropData& data) {
  refusedForLimit_ = 0;
  if (data.hasFiles) {
    for (const std::string& path : data.files) AddToList(path);
  }
  FinishAdding();
}

void fTessaly::cmdAddFiles_Click() {
  refusedForLimit_ = 0;
  const std::string chosen =
      ShowOpenDialog(services_.ui, kAllFilesFilter, "", "", kAddFilesFlags);
  if (chosen.empty()) return;
  for (std::string_view path : text::Split(chosen, ";")) AddToList(std::string(path));
  FinishAdding();
}

void fTessaly::AddFolderFiles(const std::string& folder) {
  const bool recursive = chkSubDirectories.value() == kChecked;
  for (std::string& path : ListFiles(services_.fileSystem, folder, "*.*", recursive)) {
    AddToList(std::move(path));
  }
}

void fTessaly::AddGivenPath(const std::string& path) {
  if (path.empty()) return;  // as between two ";" of a file part
  const auto attributes = services_.fileSystem.GetAttributes(path);
  if (attributes && (*attributes & attr::kDirectory) != 0) {
    AddFolderFiles(path);
  } else if (attributes && !path.ends_with('\\')) {
    AddToList(path);
  } else {
    leftOut_.push_back(path);  // a closing separator names a folder, whatever stands there
  }
}

void fTessaly::cmdAddDirectory_Click() {
  refusedForLimit_ = 0;
  const std::string folder = BrowseForFolder(services_.ui, "Select Directory to Add", "");
  if (!DirectoryExists(folder, services_.fileSystem)) return;
  AddFolderFiles(folder);
  FinishAdding();
}

void fTessaly::cmdRemove_Click() {
  removeSelected(lstFiles);
  UpdateList();
}

void fTessaly::cmdClear_Click() {
  lstFiles.Clear();
  UpdateList();
}

}  // namespace tessaly
