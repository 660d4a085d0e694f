#ifndef TESSALY_APP_CLI_DRY_RUN_H_
#define TESSALY_APP_CLI_DRY_RUN_H_

#include <ostream>
#include <string>
#include <vector>

#include "controls/list_box.h"
#include "log_printer.h"
#include "platform/file_system.h"

namespace tessaly::cli {

// What a run would do with one file of the preview.
struct PlannedRename {
  std::string oldPath;
  std::string newPath;
  // The new path names an entry other than the file itself, or is the new
  // path of another file as well.
  bool clash = false;
};

std::vector<PlannedRename> PlanRenames(const ListBox& oldPaths, const ListBox& newPaths,
                                       FileSystem& files);

// One line a file, "old -> new" as `files` shows paths, a clashing new path
// in the colour of a failure.
void PrintPlan(const std::vector<PlannedRename>& plan, const FileSystem& files, std::ostream& out,
               ColourMode colours);

// One JSON object a file, full native paths (folders as `files` finds them
// on the disk), with the codes "would-rename", "would-clash" and
// "no-change".
void PrintPlanJson(const std::vector<PlannedRename>& plan, FileSystem& files, std::ostream& out);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_DRY_RUN_H_
