#include "platform/registry_rules.h"

#include <algorithm>

#include "text/case_mapping.h"

namespace tessaly::registry_rules {

std::string FoldName(std::string_view name) {
  // The desktop registry compares names in upper case.
  return text::UpperCase(name);
}

std::optional<std::vector<KeyName>> SplitKeyPath(std::string_view path) {
  std::vector<KeyName> names;
  names.reserve(static_cast<std::size_t>(std::count(path.begin(), path.end(), '\\')) + 1);
  if (!path.empty() && path.back() == '\\') path.remove_suffix(1);
  if (path.empty()) return names;
  std::size_t start = 0;
  while (true) {
    const std::size_t end = std::min(path.find('\\', start), path.size());
    const std::string_view name = path.substr(start, end - start);
    if (name.empty()) return std::nullopt;
    names.push_back({std::string(name), FoldName(name)});
    if (end == path.size()) return names;
    start = end + 1;
  }
}

std::string FoldedPath(const std::vector<KeyName>& names, std::size_t count) {
  std::string folded;
  for (std::size_t i = 0; i < count && i < names.size(); ++i) {
    if (i > 0) folded += '\\';
    folded += names[i].folded;
  }
  return folded;
}

bool IsTextType(std::uint32_t type) {
  return type == reg::kText || type == reg::kExpandText || type == reg::kMultiText;
}

std::uint32_t KeptSize(std::uint32_t type, const std::uint8_t* data, std::uint32_t size) {
  if (!IsTextType(type) || size == 0 || data == nullptr) return size;
  return (data[size - 1] != 0 && data[size] == 0) ? size + 1 : size;
}

long AnswerQuery(std::uint32_t storedType, std::span<const std::uint8_t> stored,
                 std::uint32_t* type, std::uint8_t* data, std::uint32_t* size) {
  if (data != nullptr && size == nullptr) return reg::kInvalidParameter;
  if (type != nullptr) *type = storedType;
  if (size == nullptr) return reg::kSuccess;
  const auto needed = static_cast<std::uint32_t>(stored.size());
  const std::uint32_t room = *size;
  *size = needed;
  if (data == nullptr) return reg::kSuccess;
  if (room < needed) return reg::kMoreData;
  std::copy(stored.begin(), stored.end(), data);
  // A text kept without its terminator gets one in the buffer when there is
  // room, not counted in the size.
  if (IsTextType(storedType) && needed < room && (needed == 0 || stored.back() != 0)) {
    data[needed] = 0;
  }
  return reg::kSuccess;
}

RegistryKey KeyHandleTable::Add(OpenKey key) {
  const RegistryKey handle = next_++;
  keys_.emplace(handle, std::move(key));
  return handle;
}

const KeyHandleTable::OpenKey* KeyHandleTable::Find(RegistryKey key) const {
  const auto found = keys_.find(key);
  return found == keys_.end() ? nullptr : &found->second;
}

bool KeyHandleTable::Remove(RegistryKey key) { return keys_.erase(key) > 0; }

}  // namespace tessaly::registry_rules
