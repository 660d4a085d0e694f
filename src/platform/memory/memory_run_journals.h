#ifndef TESSALY_PLATFORM_MEMORY_MEMORY_RUN_JOURNALS_H_
#define TESSALY_PLATFORM_MEMORY_MEMORY_RUN_JOURNALS_H_

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/run_journals.h"

namespace tessaly {

// Journals held in memory, for tests: each is a text that a test may read
// and cut or spoil directly, as a killed process or a damaged disk would.
class MemoryRunJournals : public RunJournals {
 public:
  std::unique_ptr<JournalAppender> Create(std::string_view name) override;
  std::vector<std::string> Names() override;
  std::optional<std::string> Read(std::string_view name) override;
  bool Remove(std::string_view name) override { return texts_.erase(std::string(name)) == 1; }

  // The journal's text itself, made if missing.
  std::string& Text(std::string_view name) { return texts_[std::string(name)]; }
  // Every write fails from now on, as on a full disk.
  void FailWrites() { failWrites_ = true; }

 private:
  class Appender;

  std::map<std::string, std::string, std::less<>> texts_;
  bool failWrites_ = false;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_MEMORY_RUN_JOURNALS_H_
