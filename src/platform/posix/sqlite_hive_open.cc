#include <chrono>

#include "platform/posix/owned_hive_file.h"
#include "platform/posix/sqlite_hive.h"

// Opening a hive's database, preparing its tables, and the plumbing under
// every call.
namespace tessaly {

namespace {

constexpr int kSchemaVersion = 1;

constexpr const char* kCreateSchema =
    "CREATE TABLE IF NOT EXISTS keys("
    "  fold TEXT PRIMARY KEY, name TEXT NOT NULL) WITHOUT ROWID;"
    "CREATE TABLE IF NOT EXISTS vals("
    "  key TEXT NOT NULL, fold TEXT NOT NULL, name TEXT NOT NULL,"
    "  type INTEGER NOT NULL, data BLOB NOT NULL,"
    "  PRIMARY KEY(key, fold)) WITHOUT ROWID;"
    "PRAGMA user_version = 1;";

// The registry code for an SQLite result.
long RegistryCodeFor(int sqliteCode) {
  switch (sqliteCode & 0xff) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
      return reg::kSuccess;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_CANTOPEN:
      return reg::kAccessDenied;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return reg::kBadDatabase;
    default:
      return reg::kIoFailed;
  }
}

}  // namespace

long SqliteHive::CodeFor(int sqliteCode) {
  // Waiting once is enough: a lock held that long is held by someone who
  // will not let go soon, and every call would wait again.
  if ((sqliteCode & 0xff) == SQLITE_BUSY) unavailable_ = true;
  return RegistryCodeFor(sqliteCode);
}

long SqliteHive::Connect(Need need) {
  if (unavailable_) return reg::kIoFailed;
  if (refused_) return reg::kAccessDenied;
  if (db_ == nullptr) {
    if (const long code = Open(need); code != reg::kSuccess) return code;
  }
  if (hasSchema_) return reg::kSuccess;
  const long code = PrepareSchema();
  if (code == reg::kNotFound) return need == Need::kRead ? code : reg::kAccessDenied;
  if (code != reg::kSuccess) Close();  // tried afresh at the next call
  return code;
}

void SqliteHive::RefreshCache() {
  // Reading the version costs a system call. Within a short window another
  // process's commit is indistinguishable from one made just after it, so
  // the version is read again only once the window has passed; this
  // process's own writes clear the cache and are seen at once.
  const auto now = std::chrono::steady_clock::now();
  if (cache_.HasVersion() && now - lastValidated_ < file_.freshness) return;
  cache_.Validate(DatabaseVersion());
  lastValidated_ = now;
}

std::optional<std::uint64_t> SqliteHive::DatabaseVersion() {
  // Bytes 18 and 19 of the header are 1 in rollback-journal mode, where
  // every commit bumps the change counter at byte 24 before it touches any
  // other page; in any other mode the counter proves nothing.
  sqlite3_file* file = nullptr;
  if (sqlite3_file_control(db_, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
      file == nullptr || file->pMethods == nullptr) {
    return std::nullopt;
  }
  unsigned char header[10];
  if (file->pMethods->xRead(file, header, sizeof header, 18) != SQLITE_OK) return std::nullopt;
  if (header[0] != 1 || header[1] != 1) return std::nullopt;
  return std::uint64_t{header[6]} << 24 | std::uint64_t{header[7]} << 16 |
         std::uint64_t{header[8]} << 8 | header[9];
}

long SqliteHive::Open(Need need) {
  const OwnedHiveFile owned = OpenOwnedHiveFile(file_, need == Need::kWrite);
  if (!owned.refusal.empty()) return Refuse(owned.refusal);
  if (owned.code != reg::kSuccess) return owned.code;
  // SQLite opens the file by name once more: a name with no link in it, and
  // the file it opened must be the one checked. It opens its journal beside
  // the file without following a link either, and nobody else can put one
  // there: the folder is its owner's alone. Falls back to reading only when
  // the file is write-protected.
  const int opened = sqlite3_open_v2(owned.path.c_str(), &db_,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW, nullptr);
  if (opened != SQLITE_OK) {
    Close();
    return CodeFor(opened);
  }
  if (!IsSameFile(sqlite3_db_filename(db_, "main"), owned)) {
    Close();
    return Refuse(RefusalText(file_.path, "it was replaced while it was opened"));
  }
  sqlite3_busy_timeout(db_, file_.busyTimeoutMs);
  return reg::kSuccess;
}

long SqliteHive::Refuse(const std::string& why) {
  refused_ = true;
  if (notice_) notice_(why);
  return reg::kAccessDenied;
}

long SqliteHive::PrepareSchema() {
  Statement version;
  if (const long code = Prepare(version, "PRAGMA user_version"); code != reg::kSuccess) {
    return code;
  }
  std::int64_t found = 0;
  {
    StatementUse use(version.get());
    const int result = use.Step();
    if (result != SQLITE_ROW) return CodeFor(result);
    found = use.Integer(0);
  }
  if (found == 0) {
    // An empty file: a hive with no keys yet, made at the first write.
    if (sqlite3_db_readonly(db_, "main") == 1) return reg::kNotFound;
    if (const long code = Execute("BEGIN IMMEDIATE"); code != reg::kSuccess) return code;
    long code = Execute(kCreateSchema);
    if (code == reg::kSuccess) code = Execute("COMMIT");
    if (code != reg::kSuccess) Execute("ROLLBACK");
    if (code != reg::kSuccess) return code;
  } else if (found != kSchemaVersion) {
    return reg::kBadDatabase;
  }
  hasSchema_ = true;
  return reg::kSuccess;
}

long SqliteHive::Prepare(Statement& statement, const char* sql) {
  return CodeFor(statement.Prepare(db_, sql));
}

long SqliteHive::Execute(const char* sql) {
  return CodeFor(sqlite3_exec(db_, sql, nullptr, nullptr, nullptr));
}

void SqliteHive::Close() {
  findKey_.Finalize();
  readValue_.Finalize();
  writeValue_.Finalize();
  insertKey_.Finalize();
  sqlite3_close(db_);
  db_ = nullptr;
  hasSchema_ = false;
  cache_.Clear();
}

}  // namespace tessaly
