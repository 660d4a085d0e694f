#ifndef TESSALY_PLATFORM_POSIX_SQLITE_STATEMENT_H_
#define TESSALY_PLATFORM_POSIX_SQLITE_STATEMENT_H_

#include <sqlite3.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace tessaly {

// A prepared statement, kept for the life of its connection.
class Statement {
 public:
  Statement() = default;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement() { Finalize(); }

  // Prepares `sql` on `db` unless already prepared. Returns an SQLite code.
  int Prepare(sqlite3* db, const char* sql) {
    if (statement_ != nullptr) return SQLITE_OK;
    return sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement_, nullptr);
  }
  void Finalize() {
    sqlite3_finalize(statement_);
    statement_ = nullptr;
  }
  sqlite3_stmt* get() const { return statement_; }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

// One use of a prepared statement: binds, steps, and resets it at the end of
// the scope, so that no lock on the database outlives the call.
class StatementUse {
 public:
  explicit StatementUse(sqlite3_stmt* statement) : statement_(statement) {}
  StatementUse(const StatementUse&) = delete;
  StatementUse& operator=(const StatementUse&) = delete;
  ~StatementUse() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
  }

  StatementUse& Bind(int index, std::string_view text) {
    sqlite3_bind_text(statement_, index, text.data(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
    return *this;
  }
  StatementUse& Bind(int index, std::int64_t number) {
    sqlite3_bind_int64(statement_, index, number);
    return *this;
  }
  StatementUse& Bind(int index, std::span<const std::uint8_t> bytes) {
    // A zero-length blob, not NULL, for an empty value.
    static constexpr std::uint8_t kNoBytes = 0;
    sqlite3_bind_blob(statement_, index, bytes.empty() ? &kNoBytes : bytes.data(),
                      static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
    return *this;
  }

  // SQLITE_ROW, SQLITE_DONE or an error code.
  int Step() { return sqlite3_step(statement_); }

  std::int64_t Integer(int column) const { return sqlite3_column_int64(statement_, column); }
  std::span<const std::uint8_t> Bytes(int column) const {
    const auto* data = static_cast<const std::uint8_t*>(sqlite3_column_blob(statement_, column));
    const int size = sqlite3_column_bytes(statement_, column);
    return {data, static_cast<std::size_t>(size)};
  }

 private:
  sqlite3_stmt* statement_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_SQLITE_STATEMENT_H_
