#ifndef TESSALY_PLATFORM_POSIX_SQLITE_HIVE_H_
#define TESSALY_PLATFORM_POSIX_SQLITE_HIVE_H_

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/posix/hive_read_cache.h"
#include "platform/posix/owned_hive_file.h"
#include "platform/posix/registry_location.h"
#include "platform/posix/sqlite_statement.h"
#include "platform/registry_rules.h"

namespace tessaly {

// One hive in one SQLite database file. The file is opened at first need and
// kept open; a read never creates it. A folder or file that someone else
// controls is not used for the rest of the process: `notice` is told once,
// and every call fails. Every write is its own transaction, waiting a short
// while for other processes' writes to end; after one wait in vain every
// call fails at once. Keys and values are filed under
// their folded names. Reads are answered from a cache while the database's
// version is unchanged. Results are registry codes.
class SqliteHive {
 public:
  SqliteHive(HiveFile file, StorageNotice notice)
      : file_(std::move(file)), notice_(std::move(notice)) {}
  SqliteHive(const SqliteHive&) = delete;
  SqliteHive& operator=(const SqliteHive&) = delete;
  ~SqliteHive() { Close(); }

  // kSuccess if the key exists, kNotFound if not, or a failure.
  long FindKey(const std::string& foldedKey);
  // kSuccess if this process may write the hive, else kAccessDenied or a failure.
  long CheckWritable();
  // The stored type and bytes of a value, or kNotFound, or a failure. The
  // bytes stay valid until the hive's next call.
  long ReadValue(const std::string& foldedKey, const std::string& foldedName, std::uint32_t* type,
                 std::span<const std::uint8_t>* bytes);
  // Stores a value of an existing key; writes nothing when it holds that already.
  long WriteValue(const std::string& foldedKey, std::string_view name, std::uint32_t type,
                  std::span<const std::uint8_t> bytes);
  // Creates the key of `names` and its missing parents; `*existed` tells
  // whether it was there already.
  long CreateKey(const std::vector<registry_rules::KeyName>& names, bool* existed);

 private:
  enum class Need { kRead, kWrite };

  // Opens the database if needed. kNotFound when reading a hive with no file.
  long Connect(Need need);
  long Open(Need need);
  // Gives up the hive for good, saying why.
  long Refuse(const std::string& why);
  // Drops cached reads unless the database is still at their version.
  void RefreshCache();
  std::optional<std::uint64_t> DatabaseVersion();
  long FindKeyInDatabase(const std::string& foldedKey);
  long ReadValueFromDatabase(const std::string& foldedKey, const std::string& foldedName,
                             HiveReadCache::Value* value);
  long PrepareSchema();
  long Prepare(Statement& statement, const char* sql);
  long InsertKeys(const std::vector<registry_rules::KeyName>& names, bool* existed);
  long Execute(const char* sql);
  void Close();
  // The registry code for an SQLite result; a lock waited out in vain makes
  // the hive unavailable.
  long CodeFor(int sqliteCode);

  HiveFile file_;
  StorageNotice notice_;
  bool unavailable_ = false;  // for the rest of the process, after one wait in vain
  bool refused_ = false;      // for the rest of the process, once found unsafe
  sqlite3* db_ = nullptr;
  bool hasSchema_ = false;
  HiveReadCache cache_;
  HiveReadCache::Value lastRead_;  // what ReadValue hands out when not cached
  std::chrono::steady_clock::time_point lastValidated_;
  Statement findKey_;
  Statement readValue_;
  Statement writeValue_;
  Statement insertKey_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_SQLITE_HIVE_H_
