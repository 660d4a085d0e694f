#ifndef TESSALY_APP_CLI_UNDO_COMMAND_H_
#define TESSALY_APP_CLI_UNDO_COMMAND_H_

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli_options.h"
#include "journal/run_history.h"
#include "log_printer.h"
#include "wizard/undo.h"

namespace tessaly::cli {

// Whether `request` asks for --undo or --list-runs rather than a run.
bool AsksForRuns(const Request& request);

// What is wrong with such a request (files or switches beside them, both
// at once, more than one run named), or nothing.
std::optional<std::string> RunsRequestProblem(const Request& request);

// Does --list-runs, or --undo with the run named (or the last run not yet
// undone), with -n and --json as asked, and gives the exit status: 0 when
// every file is (or would be) back, 1 when any is not or there is no such run.
int RunRunsRequest(const Request& request, const Colours& colours);

// The kept runs, oldest first: name, files changed, state (an undo says
// which run it took back); as JSON, one object a run.
void PrintRuns(const std::vector<RunSummary>& runs, std::ostream& out);
void PrintRunsJson(const std::vector<RunSummary>& runs, std::ostream& out);

// One JSON object per file of an undo, as the change log's JSON: "old" is
// where the run left the file, "new" where it goes back to.
void PrintUndoJson(const std::vector<UndoLine>& lines, std::ostream& out);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_UNDO_COMMAND_H_
