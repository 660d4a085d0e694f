#ifndef TESSALY_PLATFORM_POSIX_POSIX_RUN_JOURNALS_H_
#define TESSALY_PLATFORM_POSIX_POSIX_RUN_JOURNALS_H_

#include <string>

#include "platform/posix/owned_hive_file.h"
#include "platform/posix/registry_location.h"
#include "platform/run_journals.h"

namespace tessaly {

// Journals as files "NAME.journal" in one folder, under the same rules as
// the settings: the folder is made owner-only when missing, and a folder or
// journal that another user owns or others may write is not used (`notice`
// is told once). Nothing is reached through a symbolic link inside the
// folder. The folder is looked at first when a journal is needed.
class PosixRunJournals : public RunJournals {
 public:
  explicit PosixRunJournals(std::string folder = RunJournalFolderFromEnvironment(),
                            StorageNotice notice = SayOnStandardError)
      : folder_(std::move(folder)), notice_(std::move(notice)) {}
  PosixRunJournals(const PosixRunJournals&) = delete;
  PosixRunJournals& operator=(const PosixRunJournals&) = delete;
  ~PosixRunJournals() override;

  std::unique_ptr<JournalAppender> Create(std::string_view name) override;
  std::vector<std::string> Names() override;
  std::optional<std::string> Read(std::string_view name) override;
  bool Remove(std::string_view name) override;

 private:
  // The folder, held open once it has been found fit; -1 if it is missing
  // (and not to be made) or unfit.
  int Folder(bool create);

  std::string folder_;
  StorageNotice notice_;
  int fd_ = -1;
  bool refused_ = false;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_POSIX_RUN_JOURNALS_H_
