#include "undo_command.h"

#include <algorithm>
#include <iomanip>
#include <iostream>

#include "json_lines.h"
#include "platform/machine.h"
#include "terminal_ui.h"
#include "text/visible_text.h"
#include "visible_paths_file_system.h"
#include "wizard/undo_log.h"

namespace tessaly::cli {

namespace {

// The run named on the command line: the one word left (POSIX) or the text
// behind the options (Windows); empty for the last run.
std::string NamedRun(const Request& request) {
  if (!request.words.empty()) return request.words.front();
  std::string text = request.commandLine.value_or("");
  const auto blank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && blank(text.back())) text.pop_back();
  return text.substr(std::min(text.size(), text.find_first_not_of(" \t")));
}

std::string Shown(std::string_view text) { return text::Visible(text, text::Layout::kNone); }

int Undo(const Request& request, const Colours& colours) {
  machine::Services machine = machine::MakeServices();
  const std::vector<RunSummary> history = RunHistory(*machine.journals);
  const std::string name = NamedRun(request);
  const RunSummary* run = name.empty() ? LastRunToUndo(history) : FindRun(history, name);
  if (run == nullptr) {
    std::cerr << "tessaly-cli: "
              << (name.empty() ? std::string("no run to undo")
                               : "no run named '" + Shown(name) + "' (see --list-runs)")
              << "\n";
    return 1;
  }
  VisiblePathsFileSystem files(*machine.fileSystem);
  std::optional<RunJournal> record;
  if (!request.dryRun) record.emplace(*machine.journals, *machine.clock, run->name);
  const std::vector<UndoLine> lines = UndoRun(run->content, files, record ? &*record : nullptr);
  if (request.json) {
    PrintUndoJson(lines, std::cout);
  } else {
    TerminalPerson person;
    TerminalUi ui(std::cout, std::cerr, false, person);
    RichTextBox log;
    WriteUndoLog(log, lines, run->name, *machine.clock, *machine.locale, files);
    PrintRichText(log, std::cout, colours);
  }
  std::cout << std::flush;
  if (record && record->incomplete()) {
    std::cerr << "tessaly-cli: this undo could not be recorded in full; it cannot be undone in full\n";
  }
  const bool allBack = std::all_of(lines.begin(), lines.end(), [](const UndoLine& line) {
    return line.outcome == UndoOutcome::kRestored || line.outcome == UndoOutcome::kWouldRestore;
  });
  return allBack ? 0 : 1;
}

}  // namespace

bool AsksForRuns(const Request& request) { return request.undo || request.listRuns; }

std::optional<std::string> RunsRequestProblem(const Request& request) {
  if (request.undo && request.listRuns) return "--undo and --list-runs go alone";
  const std::string name = NamedRun(request);
  const bool oneWord = request.words.size() <= 1 && name.find_first_of(" \t") == std::string::npos;
  if (request.listRuns && (request.filesFrom || !name.empty())) {
    return "--list-runs takes no files or switches";
  }
  if (request.filesFrom || !oneWord || name == "--") {
    return "--undo takes at most the name of one run, as --list-runs shows it";
  }
  return std::nullopt;
}

int RunRunsRequest(const Request& request, const Colours& colours) {
  if (request.undo) return Undo(request, colours);
  machine::Services machine = machine::MakeServices();
  const std::vector<RunSummary> history = RunHistory(*machine.journals);
  if (history.empty() && !request.json) std::cerr << "tessaly-cli: no runs recorded\n";
  if (request.json) {
    PrintRunsJson(history, std::cout);
  } else if (!history.empty()) {
    PrintRuns(history, std::cout);
  }
  std::cout << std::flush;
  return 0;
}

void PrintRuns(const std::vector<RunSummary>& runs, std::ostream& out) {
  out << std::left << std::setw(24) << "RUN" << std::right << std::setw(6) << "FILES" << "  STATE\n";
  for (const RunSummary& run : runs) {
    out << std::left << std::setw(24) << Shown(run.name) << std::right << std::setw(6) << run.files
        << "  " << StateWord(run.state);
    if (run.content.undo) out << ", undo of " << Shown(run.content.undoes);
    out << "\n";
  }
}

void PrintRunsJson(const std::vector<RunSummary>& runs, std::ostream& out) {
  for (const RunSummary& run : runs) {
    out << "{\"run\":" << JsonString(run.name) << ",\"started\":" << JsonString(run.content.started)
        << ",\"files\":" << run.files << ",\"state\":" << JsonString(StateWord(run.state));
    if (run.content.undo) out << ",\"undoes\":" << JsonString(run.content.undoes);
    out << "}\n";
  }
}

void PrintUndoJson(const std::vector<UndoLine>& lines, std::ostream& out) {
  for (const UndoLine& line : lines) {
    WriteJsonLine(out, machine::NativePath(line.from), machine::NativePath(line.to),
                  UndoOutcomeText(line.outcome), UndoOutcomeCode(line.outcome));
  }
}

}  // namespace tessaly::cli
