#include "platform/memory/memory_file_system.h"

#include "text/case_mapping.h"

namespace tessaly {

std::string MemoryFileSystem::Key(std::string_view path) const {
  // A folder is the same entry with or without its closing backslash.
  if (path.size() > 1 && path.back() == '\\') path.remove_suffix(1);
  if (letterCase_ == LetterCase::kExact) return std::string(path);
  return text::LowerCase(text::UpperCase(path));
}

void MemoryFileSystem::AddFile(std::string_view path, std::uint32_t attributes) {
  entries_[Key(path)] = attributes;
}

void MemoryFileSystem::AddDirectory(std::string_view path) {
  entries_[Key(path)] = attr::kDirectory;
}

void MemoryFileSystem::Remove(std::string_view path) { entries_.erase(Key(path)); }

std::optional<std::uint32_t> MemoryFileSystem::GetAttributes(std::string_view path) {
  if (path.empty()) return std::nullopt;
  const auto found = entries_.find(Key(path));
  if (found == entries_.end()) return std::nullopt;
  return found->second;
}

}  // namespace tessaly
