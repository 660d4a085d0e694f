#include "platform/memory/memory_registry.h"

namespace tessaly {

namespace rules = registry_rules;

bool MemoryRegistry::Fault::Fires() {
  if (count <= 0) return false;
  --count;
  return true;
}

void MemoryRegistry::FailNextSets(int count, long code) { setFault_ = {count, code}; }

void MemoryRegistry::FailNextCreates(int count, long code) { createFault_ = {count, code}; }

bool MemoryRegistry::KeyExists(Hive hive, std::string_view path) const {
  const auto names = rules::SplitKeyPath(path);
  if (!names) return false;
  return hives_[Index(hive)].keys.contains(rules::FoldedPath(*names, names->size()));
}

MemoryRegistry::Key* MemoryRegistry::FindKey(const rules::KeyHandleTable::OpenKey& open) {
  auto& keys = hives_[Index(open.hive)].keys;
  const auto found = keys.find(open.folded);
  return found == keys.end() ? nullptr : &found->second;
}

long MemoryRegistry::OpenKey(Hive hive, std::string_view path, std::uint32_t access,
                             RegistryKey* key) {
  const HiveData& data = hives_[Index(hive)];
  if (data.access == Access::kNone) return reg::kAccessDenied;
  const auto names = rules::SplitKeyPath(path);
  if (!names) return reg::kBadPathname;
  std::string folded = rules::FoldedPath(*names, names->size());
  if (!data.keys.contains(folded)) return reg::kNotFound;
  if (data.access == Access::kReadOnly && rules::WantsWrite(access)) return reg::kAccessDenied;
  *key = handles_.Add({hive, std::move(folded), access});
  return reg::kSuccess;
}

long MemoryRegistry::QueryValue(RegistryKey key, std::string_view name, std::uint32_t* type,
                                std::uint8_t* data, std::uint32_t* size) {
  ++queryCount_;
  const auto* open = handles_.Find(key);
  if (open == nullptr) return reg::kInvalidHandle;
  if (!rules::MayQuery(open->access)) return reg::kAccessDenied;
  Key* stored = FindKey(*open);
  if (stored == nullptr) return reg::kNotFound;
  const auto found = stored->values.find(rules::FoldName(name));
  if (found == stored->values.end()) return reg::kNotFound;
  return rules::AnswerQuery(found->second.type, found->second.bytes, type, data, size);
}

long MemoryRegistry::SetValue(RegistryKey key, std::string_view name, std::uint32_t type,
                              const std::uint8_t* data, std::uint32_t size) {
  ++setCount_;
  const auto* open = handles_.Find(key);
  if (open == nullptr) return reg::kInvalidHandle;
  if (!rules::MaySet(open->access)) return reg::kAccessDenied;
  if (data == nullptr && size > 0) return reg::kInvalidParameter;
  if (hives_[Index(open->hive)].access != Access::kFull) return reg::kAccessDenied;
  if (setFault_.Fires()) return setFault_.code;
  Key* stored = FindKey(*open);
  if (stored == nullptr) return reg::kNotFound;
  const std::uint32_t kept = rules::KeptSize(type, data, size);
  Value& value = stored->values[rules::FoldName(name)];
  if (value.name.empty()) value.name = std::string(name);
  value.type = type;
  value.bytes.assign(data, data + kept);
  return reg::kSuccess;
}

long MemoryRegistry::CreateKey(Hive hive, std::string_view path, std::string_view /*keyClass*/,
                               std::uint32_t /*options*/, std::uint32_t access, RegistryKey* key,
                               std::uint32_t* disposition) {
  HiveData& data = hives_[Index(hive)];
  if (data.access == Access::kNone) return reg::kAccessDenied;
  if (createFault_.Fires()) return createFault_.code;
  const auto names = rules::SplitKeyPath(path);
  if (!names) return reg::kBadPathname;
  std::string folded = rules::FoldedPath(*names, names->size());
  const bool existed = data.keys.contains(folded);
  if (!existed) {
    if (data.access != Access::kFull) return reg::kAccessDenied;
    for (std::size_t count = 1; count <= names->size(); ++count) {
      data.keys.try_emplace(rules::FoldedPath(*names, count), Key{(*names)[count - 1].written, {}});
    }
  }
  *key = handles_.Add({hive, std::move(folded), access});
  if (disposition != nullptr) {
    *disposition = existed ? reg::kOpenedExistingKey : reg::kCreatedNewKey;
  }
  return reg::kSuccess;
}

long MemoryRegistry::CloseKey(RegistryKey key) {
  return handles_.Remove(key) ? reg::kSuccess : reg::kInvalidHandle;
}

}  // namespace tessaly
