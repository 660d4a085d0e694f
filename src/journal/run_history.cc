#include "journal/run_history.h"

#include <algorithm>
#include <set>

namespace tessaly {

namespace {

int FilesChanged(const JournalContent& content) {
  std::set<int> files;
  for (const JournalChange& change : content.changes) {
    if (change.result != JournalChange::Result::kFailed) files.insert(change.file);
  }
  return static_cast<int>(files.size());
}

}  // namespace

std::vector<RunSummary> RunHistory(RunJournals& journals) {
  std::vector<std::string> names = journals.Names();
  std::sort(names.begin(), names.end());
  std::vector<RunSummary> history;
  for (const std::string& name : names) {
    const std::optional<std::string> text = journals.Read(name);
    std::optional<JournalContent> content = text ? ReadJournal(*text) : std::nullopt;
    if (!content) continue;
    RunSummary run{name, std::move(*content)};
    run.files = FilesChanged(run.content);
    run.state = run.content.finished ? RunSummary::State::kComplete
                                     : RunSummary::State::kInterrupted;
    history.push_back(std::move(run));
  }
  // Newest first, so that an undo's own state is known before the run it took back.
  for (auto undo = history.rbegin(); undo != history.rend(); ++undo) {
    if (!undo->content.undo || undo->state != RunSummary::State::kComplete) continue;
    for (auto run = std::next(undo); run != history.rend(); ++run) {
      if (run->name == undo->content.undoes) run->state = RunSummary::State::kUndone;
    }
  }
  return history;
}

const RunSummary* LastRunToUndo(const std::vector<RunSummary>& history) {
  for (auto run = history.rbegin(); run != history.rend(); ++run) {
    if (!run->content.undo && run->state != RunSummary::State::kUndone && run->files > 0) {
      return &*run;
    }
  }
  return nullptr;
}

const RunSummary* FindRun(const std::vector<RunSummary>& history, std::string_view name) {
  const auto found = std::find_if(history.begin(), history.end(),
                                  [name](const RunSummary& run) { return run.name == name; });
  return found == history.end() ? nullptr : &*found;
}

std::string_view StateWord(RunSummary::State state) {
  switch (state) {
    case RunSummary::State::kComplete:
      return "complete";
    case RunSummary::State::kInterrupted:
      return "interrupted";
    case RunSummary::State::kUndone:
      return "undone";
  }
  return "";
}

}  // namespace tessaly
