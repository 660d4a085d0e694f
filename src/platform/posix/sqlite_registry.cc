#include "platform/posix/sqlite_registry.h"

#include <vector>

namespace tessaly {

namespace rules = registry_rules;

void SqliteRegistry::Tell(const std::string& why) {
  if (why == lastTold_) return;
  lastTold_ = why;
  notice_(why);
}

long SqliteRegistry::OpenKey(Hive hive, std::string_view path, std::uint32_t access,
                             RegistryKey* key) {
  const std::string* folded = FoldedKeyPath(path);
  if (folded == nullptr) return reg::kBadPathname;
  SqliteHive& stored = HiveFor(hive);
  if (const long code = stored.FindKey(*folded); code != reg::kSuccess) return code;
  if (rules::WantsWrite(access)) {
    if (const long code = stored.CheckWritable(); code != reg::kSuccess) return code;
  }
  *key = handles_.Add({hive, *folded, access});
  return reg::kSuccess;
}

const std::string* SqliteRegistry::FoldedKeyPath(std::string_view path) {
  // The program opens the same few keys over and over; folding is pure, so
  // the last answer is kept.
  if (lastFolded_ && path == lastPath_) return &*lastFolded_;
  const auto names = rules::SplitKeyPath(path);
  if (!names) return nullptr;
  lastPath_.assign(path);
  lastFolded_ = rules::FoldedPath(*names, names->size());
  return &*lastFolded_;
}

long SqliteRegistry::QueryValue(RegistryKey key, std::string_view name, std::uint32_t* type,
                                std::uint8_t* data, std::uint32_t* size) {
  const auto* open = handles_.Find(key);
  if (open == nullptr) return reg::kInvalidHandle;
  if (!rules::MayQuery(open->access)) return reg::kAccessDenied;
  std::uint32_t storedType = reg::kNone;
  std::span<const std::uint8_t> stored;
  const long code =
      HiveFor(open->hive).ReadValue(open->folded, rules::FoldName(name), &storedType, &stored);
  if (code != reg::kSuccess) return code;
  return rules::AnswerQuery(storedType, stored, type, data, size);
}

long SqliteRegistry::SetValue(RegistryKey key, std::string_view name, std::uint32_t type,
                              const std::uint8_t* data, std::uint32_t size) {
  const auto* open = handles_.Find(key);
  if (open == nullptr) return reg::kInvalidHandle;
  if (!rules::MaySet(open->access)) return reg::kAccessDenied;
  if (data == nullptr && size > 0) return reg::kInvalidParameter;
  const std::uint32_t kept = rules::KeptSize(type, data, size);
  return HiveFor(open->hive).WriteValue(open->folded, name, type, {data, kept});
}

long SqliteRegistry::CreateKey(Hive hive, std::string_view path, std::string_view /*keyClass*/,
                               std::uint32_t /*options*/, std::uint32_t access, RegistryKey* key,
                               std::uint32_t* disposition) {
  const auto names = rules::SplitKeyPath(path);
  if (!names) return reg::kBadPathname;
  bool existed = false;
  if (const long code = HiveFor(hive).CreateKey(*names, &existed); code != reg::kSuccess) {
    return code;
  }
  *key = handles_.Add({hive, rules::FoldedPath(*names, names->size()), access});
  if (disposition != nullptr) {
    *disposition = existed ? reg::kOpenedExistingKey : reg::kCreatedNewKey;
  }
  return reg::kSuccess;
}

long SqliteRegistry::CloseKey(RegistryKey key) {
  return handles_.Remove(key) ? reg::kSuccess : reg::kInvalidHandle;
}

}  // namespace tessaly
