#ifndef TESSALY_APP_CLI_DRY_RUN_H_
#define TESSALY_APP_CLI_DRY_RUN_H_

#include <ostream>
#include <string>
#include <string_view>
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

// How many files of a plan would be renamed, stay as they are, or clash.
struct PlanCounts {
  int toRename = 0;
  int unchanged = 0;
  int clashes = 0;
};
PlanCounts CountPlan(const std::vector<PlannedRename>& plan);
// "12 to rename, 3 unchanged, 1 clash".
std::string PlanSummary(const PlanCounts& counts);

// How the plan is printed for a person.
struct PlanView {
  // Paths under this folder (a model path ending in a separator) are shown
  // relative to it.
  std::string here;
  bool unchangedToo = false;  // else only the files that would change
  Colours colours;
};

// One line a file, "old -> new" as `files` shows paths, a clashing new path
// in the colour of a failure.
void PrintPlan(const std::vector<PlannedRename>& plan, const FileSystem& files,
               const PlanView& view, std::ostream& out);

// `path` as `files` shows it, relative to the folder `here` (a model path
// ending in a separator) when it lies under it.
std::string ShownFrom(const FileSystem& files, std::string_view here, std::string_view path);

// One JSON object a file, full native paths (folders as `files` finds them
// on the disk), with the codes "would-rename", "would-clash" and
// "no-change".
void PrintPlanJson(const std::vector<PlannedRename>& plan, FileSystem& files, std::ostream& out);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_DRY_RUN_H_
