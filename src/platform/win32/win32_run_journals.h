#ifndef TESSALY_PLATFORM_WIN32_WIN32_RUN_JOURNALS_H_
#define TESSALY_PLATFORM_WIN32_WIN32_RUN_JOURNALS_H_

#include <string>

#include "platform/run_journals.h"

namespace tessaly {

// Journals as files "NAME.journal" in %LOCALAPPDATA%\Tessaly\runs, which
// only its user can reach; with TESSALY_REGISTRY_DIR set (tests, portable
// use), in its "runs" folder. The folder is made when a journal is first
// made; a journal that is a link (a reparse point) is not read.
class Win32RunJournals : public RunJournals {
 public:
  Win32RunJournals();
  explicit Win32RunJournals(std::string folder) : folder_(std::move(folder)) {}

  std::unique_ptr<JournalAppender> Create(std::string_view name) override;
  std::vector<std::string> Names() override;
  std::optional<std::string> Read(std::string_view name) override;
  bool Remove(std::string_view name) override;

 private:
  // The file of journal `name`; empty for a name that could reach outside the folder.
  std::wstring FileOf(std::string_view name) const;

  std::string folder_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_WIN32_WIN32_RUN_JOURNALS_H_
