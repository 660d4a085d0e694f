#include "platform/memory/memory_run_journals.h"

namespace tessaly {

class MemoryRunJournals::Appender : public JournalAppender {
 public:
  Appender(MemoryRunJournals& owner, std::string name) : owner_(owner), name_(std::move(name)) {}
  bool Append(std::string_view bytes) override {
    // A journal removed meanwhile is not brought back.
    const auto found = owner_.texts_.find(name_);
    if (owner_.failWrites_ || found == owner_.texts_.end()) return false;
    found->second.append(bytes);
    return true;
  }

 private:
  MemoryRunJournals& owner_;
  std::string name_;
};

std::unique_ptr<JournalAppender> MemoryRunJournals::Create(std::string_view name) {
  if (failWrites_ || !texts_.emplace(std::string(name), std::string()).second) return nullptr;
  return std::make_unique<Appender>(*this, std::string(name));
}

std::vector<std::string> MemoryRunJournals::Names() {
  std::vector<std::string> names;
  for (const auto& [name, text] : texts_) names.push_back(name);
  return names;
}

std::optional<std::string> MemoryRunJournals::Read(std::string_view name) {
  const auto found = texts_.find(name);
  if (found == texts_.end()) return std::nullopt;
  return found->second;
}

}  // namespace tessaly
