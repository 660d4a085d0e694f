#ifndef TESSALY_JOURNAL_RUN_HISTORY_H_
#define TESSALY_JOURNAL_RUN_HISTORY_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "journal/journal_reader.h"
#include "platform/run_journals.h"

namespace tessaly {

// One kept run, as a list of runs shows it.
struct RunSummary {
  enum class State {
    kComplete,     // it went through to its end
    kInterrupted,  // it ended before its end: killed, or cancelled
    kUndone,       // an undo that went through took it back (and was not taken back itself)
  };

  std::string name;
  JournalContent content;
  int files = 0;  // the run's files with a change that may have taken place
  State state = State::kComplete;
};

// Every kept journal that can be read, oldest first.
std::vector<RunSummary> RunHistory(RunJournals& journals);

// The newest rename run (not an undo) that has not been undone and may
// have changed a file; nothing if there is none.
const RunSummary* LastRunToUndo(const std::vector<RunSummary>& history);

// The run named `name`, or null.
const RunSummary* FindRun(const std::vector<RunSummary>& history, std::string_view name);

// "complete", "interrupted" or "undone".
std::string_view StateWord(RunSummary::State state);

}  // namespace tessaly

#endif  // TESSALY_JOURNAL_RUN_HISTORY_H_
