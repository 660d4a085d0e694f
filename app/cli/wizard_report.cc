#include "wizard_report.h"

#include <algorithm>

#include "dry_run.h"
#include "json_lines.h"
#include "platform/machine.h"
#include "wizard/wizard_texts.h"

namespace tessaly::cli {

namespace {

// Says why there is no log to print.
void ReportNoRun(const fTessaly& form, std::ostream& messages) {
  if (form.CurrentStep == 4) {
    messages << "tessaly-cli: no files to rename (paths that name nothing and repeats are"
                " left out)\n";
  } else {
    messages << "tessaly-cli: nothing renamed; the wizard stopped on step " << form.CurrentStep
             << " with " << form.lstFiles.ListCount()
             << " files listed (/step:3 previews, /step:4 renames)\n";
  }
}

void ReportListFull(const fTessaly& form, std::ostream& messages) {
  if (form.refusedForLimit() > 0) {
    messages << "tessaly-cli: " << ListFullText(form.refusedForLimit()) << "\n";
  }
}

// The notes that go with a log in JSON, whose lines went out as the run
// went (StreamJson).
void ReportJsonNotes(const fTessaly& form, std::ostream& messages) {
  ReportListFull(form, messages);
  if (form.outcomes().empty() && !form.stopped()) ReportNoRun(form, messages);
}

void ReportStopped(const fTessaly& form, std::ostream& messages) {
  messages << "tessaly-cli: stopped after " << form.outcomes().size() << " of "
           << form.lstFiles.ListCount() << " files, as asked; the rest keep their names\n";
}

void ReportLeftOut(const fTessaly& form, const FileSystem& files, std::ostream& messages) {
  for (const std::string& path : form.leftOut()) {
    messages << "tessaly-cli: left out, no such file or folder: " << files.Shown(path) << '\n';
  }
}

}  // namespace

void ReportWizard(const fTessaly& form, std::ostream& out, std::ostream& messages,
                  const Colours& colours) {
  ReportListFull(form, messages);
  if (form.tLog.Length() > 0) {
    PrintRichText(form.tLog, out, colours);
  } else if (form.CurrentStep == 3 && form.tOutput.Length() > 0) {
    PrintRichText(form.tOutput, out, colours);
  } else {
    ReportNoRun(form, messages);
  }
  out << std::flush;
}

Connection StreamJson(fTessaly& form, FileSystem& files, std::ostream& out) {
  return form.fileDone.Connect([&form, &files, &out] {
    const fTessaly::FileOutcome& file = form.lastOutcome();
    WriteJsonLine(out, machine::NativePath(file.oldPath),
                  machine::NativePath(files.PathOnDisk(file.newPath)), OutcomeText(file.outcome),
                  OutcomeCode(file.outcome));
    out << std::flush;
  });
}

int ReportEnd(const fTessaly& form, FileSystem& files, const ReportStyle& style,
              std::ostream& out, std::ostream& messages) {
  ReportLeftOut(form, files, messages);
  if (form.dryRunHeldBackTheRun() && form.lstFilesC.ListCount() > 0) {
    ReportListFull(form, messages);
    const auto plan = PlanRenames(form.lstFiles, form.lstFilesC, files);
    if (style.json) {
      PrintPlanJson(plan, files, out);
    } else {
      PrintPlan(plan, files, {style.here, style.unchangedToo, style.colours}, out);
    }
    const PlanCounts counts = CountPlan(plan);
    messages << "tessaly-cli: " << PlanSummary(counts) << '\n';
    return counts.clashes > 0 ? 1 : ExitStatus(form);
  }
  if (style.json) {
    ReportJsonNotes(form, messages);
  } else {
    ReportWizard(form, out, messages, style.colours);
  }
  if (form.stopped()) ReportStopped(form, messages);
  return ExitStatus(form);
}

std::string_view OutcomeCode(Outcome outcome) {
  switch (outcome) {
    case Outcome::kCompleted:
      return "completed";
    case Outcome::kErrorRemovingOriginal:
      return "error-removing-original";
    case Outcome::kErrorRemovingTemp:
      return "error-removing-temp";
    case Outcome::kNoChange:
      return "no-change";
    case Outcome::kFailedExists:
      return "failed-exists";
    case Outcome::kFailedRenaming:
      return "failed-renaming";
  }
  return "";
}

int ExitStatus(const fTessaly& form) {
  const auto& outcomes = form.outcomes();
  const bool allWell = std::all_of(outcomes.begin(), outcomes.end(), [](Outcome outcome) {
    return outcome == Outcome::kCompleted || outcome == Outcome::kNoChange;
  });
  return allWell && form.refusedForLimit() == 0 && form.leftOut().empty() ? 0 : 1;
}

}  // namespace tessaly::cli
