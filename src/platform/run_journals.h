#ifndef TESSALY_PLATFORM_RUN_JOURNALS_H_
#define TESSALY_PLATFORM_RUN_JOURNALS_H_

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

// One journal open for writing. Nothing is ever written into its middle.
class JournalAppender {
 public:
  virtual ~JournalAppender() = default;

  // Adds `bytes` at the end in one piece, handed to the system before it
  // returns, so that the end of the process, even a kill, loses none of
  // them. Returns false if they could not all be written.
  virtual bool Append(std::string_view bytes) = 0;
};

// The folder that keeps the journals of rename runs, one file per run,
// known by a name (a file name without folder or extension). Only its owner
// may read or write them: a folder or journal that someone else controls
// is not used, and the backend says so once.
// Abstract so tests can keep journals in memory; the real ones are
// PosixRunJournals and Win32RunJournals.
class RunJournals {
 public:
  virtual ~RunJournals() = default;

  // Makes the journal `name` as a new, empty file and opens it for
  // appending; the folder is made first if missing. Null if the name is
  // taken or the journal cannot be made.
  virtual std::unique_ptr<JournalAppender> Create(std::string_view name) = 0;

  // The names of the journals kept, in no particular order; empty if there
  // are none or the folder cannot be used.
  virtual std::vector<std::string> Names() = 0;

  // The whole text of journal `name`; nothing if it is missing, cannot be
  // read or is not its owner's alone.
  virtual std::optional<std::string> Read(std::string_view name) = 0;

  // Deletes journal `name`. Returns false if it could not.
  virtual bool Remove(std::string_view name) = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_RUN_JOURNALS_H_
