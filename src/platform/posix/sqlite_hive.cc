#include "platform/posix/sqlite_hive.h"

#include <algorithm>

namespace tessaly {

long SqliteHive::FindKey(const std::string& foldedKey) {
  if (foldedKey.empty()) return reg::kSuccess;  // the hive's root is always there
  if (const long code = Connect(Need::kRead); code != reg::kSuccess) return code;
  RefreshCache();
  if (const auto known = cache_.FindKey(foldedKey)) return *known;
  const long code = FindKeyInDatabase(foldedKey);
  if (code == reg::kSuccess || code == reg::kNotFound) cache_.RememberKey(foldedKey, code);
  return code;
}

long SqliteHive::FindKeyInDatabase(const std::string& foldedKey) {
  if (foldedKey.empty()) return reg::kSuccess;
  if (const long code = Prepare(findKey_, "SELECT 1 FROM keys WHERE fold = ?1");
      code != reg::kSuccess) {
    return code;
  }
  StatementUse use(findKey_.get());
  const int result = use.Bind(1, foldedKey).Step();
  if (result == SQLITE_DONE) return reg::kNotFound;
  return CodeFor(result);
}

long SqliteHive::CheckWritable() {
  if (const long code = Connect(Need::kWrite); code != reg::kSuccess) return code;
  return sqlite3_db_readonly(db_, "main") == 1 ? reg::kAccessDenied : reg::kSuccess;
}

long SqliteHive::ReadValue(const std::string& foldedKey, const std::string& foldedName,
                           std::uint32_t* type, std::span<const std::uint8_t>* bytes) {
  if (const long code = Connect(Need::kRead); code != reg::kSuccess) return code;
  RefreshCache();
  const HiveReadCache::Value* value = cache_.FindValue(foldedKey, foldedName);
  if (value == nullptr) {
    lastRead_ = {reg::kNotFound, reg::kNone, {}};
    const long code = ReadValueFromDatabase(foldedKey, foldedName, &lastRead_);
    if (code != reg::kSuccess) return code;
    cache_.RememberValue(foldedKey, foldedName, lastRead_);
    value = &lastRead_;
  }
  if (value->answer != reg::kSuccess) return value->answer;
  *type = value->type;
  *bytes = value->bytes;
  return reg::kSuccess;
}

long SqliteHive::ReadValueFromDatabase(const std::string& foldedKey, const std::string& foldedName,
                                       HiveReadCache::Value* value) {
  if (const long code =
          Prepare(readValue_, "SELECT type, data FROM vals WHERE key = ?1 AND fold = ?2");
      code != reg::kSuccess) {
    return code;
  }
  StatementUse use(readValue_.get());
  const int result = use.Bind(1, foldedKey).Bind(2, foldedName).Step();
  if (result == SQLITE_DONE) return reg::kSuccess;  // no such value: value->answer says so
  if (result != SQLITE_ROW) return CodeFor(result);
  value->answer = reg::kSuccess;
  value->type = static_cast<std::uint32_t>(use.Integer(0));
  const auto stored = use.Bytes(1);
  value->bytes.assign(stored.begin(), stored.end());
  return reg::kSuccess;
}

long SqliteHive::WriteValue(const std::string& foldedKey, std::string_view name, std::uint32_t type,
                            std::span<const std::uint8_t> bytes) {
  if (const long code = CheckWritable(); code != reg::kSuccess) return code;
  const std::string foldedName = registry_rules::FoldName(name);
  std::uint32_t oldType = reg::kNone;
  std::span<const std::uint8_t> oldBytes;
  const long read = ReadValue(foldedKey, foldedName, &oldType, &oldBytes);
  // Rewriting what is there would change nothing anyone can see.
  if (read == reg::kSuccess && oldType == type && std::ranges::equal(oldBytes, bytes)) {
    return reg::kSuccess;
  }
  if (read != reg::kSuccess && read != reg::kNotFound) return read;
  if (const long code = Prepare(writeValue_,
                                "INSERT INTO vals(key, fold, name, type, data)"
                                " VALUES(?1, ?2, ?3, ?4, ?5) ON CONFLICT(key, fold)"
                                " DO UPDATE SET type = excluded.type, data = excluded.data");
      code != reg::kSuccess) {
    return code;
  }
  if (const long code = Execute("BEGIN IMMEDIATE"); code != reg::kSuccess) return code;
  long code = reg::kSuccess;
  {
    StatementUse use(writeValue_.get());
    use.Bind(1, foldedKey).Bind(2, foldedName).Bind(3, name);
    use.Bind(4, static_cast<std::int64_t>(type)).Bind(5, bytes);
    code = CodeFor(use.Step());
  }
  if (code == reg::kSuccess) code = Execute("COMMIT");
  if (code != reg::kSuccess) Execute("ROLLBACK");
  cache_.Clear();
  return code;
}

long SqliteHive::CreateKey(const std::vector<registry_rules::KeyName>& names, bool* existed) {
  const long found = FindKey(registry_rules::FoldedPath(names, names.size()));
  *existed = found == reg::kSuccess;
  if (found != reg::kNotFound) return found;
  if (const long code = CheckWritable(); code != reg::kSuccess) return code;
  if (const long code = Execute("BEGIN IMMEDIATE"); code != reg::kSuccess) return code;
  long code = InsertKeys(names, existed);
  if (code == reg::kSuccess) code = Execute("COMMIT");
  if (code != reg::kSuccess) Execute("ROLLBACK");
  cache_.Clear();
  return code;
}

long SqliteHive::InsertKeys(const std::vector<registry_rules::KeyName>& names, bool* existed) {
  // Looked at again inside the transaction: another process may have made it.
  const long found = FindKeyInDatabase(registry_rules::FoldedPath(names, names.size()));
  *existed = found == reg::kSuccess;
  if (found != reg::kNotFound) return found;
  if (const long code =
          Prepare(insertKey_, "INSERT OR IGNORE INTO keys(fold, name) VALUES(?1, ?2)");
      code != reg::kSuccess) {
    return code;
  }
  for (std::size_t count = 1; count <= names.size(); ++count) {
    StatementUse use(insertKey_.get());
    use.Bind(1, registry_rules::FoldedPath(names, count)).Bind(2, names[count - 1].written);
    if (const long code = CodeFor(use.Step()); code != reg::kSuccess) return code;
  }
  return reg::kSuccess;
}

}  // namespace tessaly
