#include "dry_run.h"

#include <unordered_map>

#include "json_lines.h"
#include "platform/machine.h"
#include "wizard/change_log.h"

namespace tessaly::cli {

namespace {

// The entry under the exact new name, if any, is not the file itself (as
// after a change of letter case on a disk that folds it).
bool TakenByAnother(FileSystem& files, const std::string& oldPath, const std::string& newPath) {
  const auto existing = files.IdentityOf(newPath);
  return existing && existing != files.IdentityOf(oldPath);
}

}  // namespace

std::vector<PlannedRename> PlanRenames(const ListBox& oldPaths, const ListBox& newPaths,
                                       FileSystem& files) {
  std::vector<PlannedRename> plan;
  std::unordered_map<std::string, int> newNames;
  for (std::size_t i = 0; i < newPaths.ListCount() && i < oldPaths.ListCount(); ++i) {
    plan.push_back({std::string(oldPaths.List(i)), std::string(newPaths.List(i)), false});
    ++newNames[files.SameNameKey(newPaths.List(i))];
  }
  for (PlannedRename& rename : plan) {
    if (rename.newPath == rename.oldPath) continue;
    rename.clash = newNames[files.SameNameKey(rename.newPath)] > 1 ||
                   TakenByAnother(files, rename.oldPath, rename.newPath);
  }
  return plan;
}

PlanCounts CountPlan(const std::vector<PlannedRename>& plan) {
  PlanCounts counts;
  for (const PlannedRename& rename : plan) {
    ++(rename.clash                         ? counts.clashes
       : rename.newPath == rename.oldPath ? counts.unchanged
                                          : counts.toRename);
  }
  return counts;
}

std::string PlanSummary(const PlanCounts& counts) {
  return std::to_string(counts.toRename) + " to rename, " + std::to_string(counts.unchanged) +
         " unchanged, " + std::to_string(counts.clashes) + (counts.clashes == 1 ? " clash" : " clashes");
}

std::string ShownFrom(const FileSystem& files, std::string_view here, std::string_view path) {
  const bool under = !here.empty() && path.size() > here.size() &&
                     files.SameNameKey(path.substr(0, here.size())) == files.SameNameKey(here);
  return files.Shown(under ? path.substr(here.size()) : path);
}

void PrintPlan(const std::vector<PlannedRename>& plan, const FileSystem& files,
               const PlanView& view, std::ostream& out) {
  const Rgb clashColour = OutcomeColour(Outcome::kFailedExists);
  for (const PlannedRename& rename : plan) {
    if (rename.newPath == rename.oldPath && !view.unchangedToo) continue;
    const std::string newPath = ShownFrom(files, view.here, rename.newPath);
    out << ShownFrom(files, view.here, rename.oldPath) << " -> "
        << (rename.clash ? Coloured(newPath, clashColour, view.colours) : newPath) << '\n';
  }
  out << std::flush;
}

void PrintPlanJson(const std::vector<PlannedRename>& plan, FileSystem& files, std::ostream& out) {
  for (const PlannedRename& rename : plan) {
    const bool same = rename.newPath == rename.oldPath;
    WriteJsonLine(out, machine::NativePath(rename.oldPath),
                  machine::NativePath(files.PathOnDisk(rename.newPath)),
                  same ? OutcomeText(Outcome::kNoChange)
                       : (rename.clash ? "(Would Clash)" : "(Would Rename)"),
                  same ? "no-change" : (rename.clash ? "would-clash" : "would-rename"));
  }
  out << std::flush;
}

}  // namespace tessaly::cli
