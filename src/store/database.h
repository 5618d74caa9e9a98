#pragma once

#include <sqlite3.h>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "common/failure.h"

namespace sentrel {

/// How long one undertaking may wait for locks that other processes hold, all its steps together.
/// Over until it is renewed.
class Patience {
 public:
  /// Once an undertaking has waited in vain, those that begin within the rest do not wait at all:
  /// who holds a lock for so long is likely to go on, and the user is not to wait again and again.
  explicit Patience(std::chrono::milliseconds length,
                    std::chrono::milliseconds rest = std::chrono::seconds(5))
      : length_(length), rest_(rest) {}

  void Renew() { Renew(length_); }
  /// For an undertaking that is worth another wait.
  void Renew(std::chrono::milliseconds length);
  /// Returns false at once when it is over.
  bool WaitALittle() const;

 private:
  using Time = std::chrono::steady_clock::time_point;

  std::chrono::milliseconds length_;
  std::chrono::milliseconds rest_;
  Time end_;
  /// Whether the undertaking has any patience, and has not come to its end yet.
  mutable bool waits_ = false;
  /// When an undertaking last waited in vain.
  mutable std::optional<Time> gaveUp_;
};

/// An SQLite call that did not succeed.
class DatabaseFailure : public Failure {
 public:
  DatabaseFailure(int code, const std::string& text) : Failure(text), code_(code) {}
  /// The extended result code.
  int Code() const { return code_; }
  /// The file is no database or is damaged.
  bool IsDamage() const;
  /// A value is larger than any option.
  bool IsTooLarge() const { return code_ == SQLITE_TOOBIG; }
  /// A writer has died in the middle, and the file cannot be repaired by this user.
  bool IsUnfinishedWrite() const { return code_ == SQLITE_READONLY_ROLLBACK; }

 private:
  int code_;
};

/// An open SQLite file. Everything throws DatabaseFailure.
class Database {
 public:
  /// The file must exist; it is opened read-only where it cannot be written. Fails where it is
  /// damaged, anywhere in it. The patience must outlive the database.
  Database(const std::string& path, const Patience& patience);
  /// Empties a damaged file, for all that have it open.
  static void Reset(const std::string& path, const Patience& patience);

  /// A statement with texts bound to ?1, ?2 and so on, nothing being NULL. One at a time for each
  /// SQL text.
  class Query {
   public:
    template <typename... Texts>
    Query(Database& database, sqlite3_stmt* statement, const Texts&... texts)
        : db_(database), statement_(statement) {
      int index = 0;
      (Bind(++index, texts), ...);
    }
    ~Query() { sqlite3_reset(statement_); }
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    /// Whether there is a row (another row).
    bool Step();
    /// SQLITE_TEXT, SQLITE_NULL and so on.
    int Type() const { return sqlite3_column_type(statement_, 0); }
    /// First column of the row.
    std::string Text() const;

   private:
    void Bind(int index, const std::optional<std::string>& text);

    Database& db_;
    sqlite3_stmt* statement_;
  };

  /// `sql` must be a literal: a statement is prepared once for each.
  template <typename... Texts>
  Query Run(const char* sql, const Texts&... texts) {
    return Query(*this, Prepared(sql), texts...);
  }
  template <typename... Texts>
  void Execute(const char* sql, const Texts&... texts) {
    Run(sql, texts...).Step();
  }

  bool InTransaction() const { return sqlite3_get_autocommit(connection_.get()) == 0; }

 private:
  Database() = default;
  void Connect(const std::string& path, const Patience& patience);
  sqlite3_stmt* Prepared(const char* sql);
  void Check(int code) const;

  template <auto Function>
  struct Closer {
    template <typename Handle>
    void operator()(Handle* handle) const {
      Function(handle);
    }
  };

  std::unique_ptr<sqlite3, Closer<sqlite3_close_v2>> connection_;
  std::map<const char*, std::unique_ptr<sqlite3_stmt, Closer<sqlite3_finalize>>> statements_;
};

}  // namespace sentrel
