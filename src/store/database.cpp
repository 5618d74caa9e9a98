#include "store/database.h"

#include <thread>
#include <utility>

namespace sentrel {
namespace {

/// No option comes near it; a file that somebody filled with more must not fill the memory.
constexpr int kLongestText = 1 << 20;

int WaitForLock(void* patience, int) {
  return static_cast<const Patience*>(patience)->WaitALittle() ? 1 : 0;
}

}  // namespace

void Patience::Renew(std::chrono::milliseconds length) {
  const Time now = std::chrono::steady_clock::now();
  waits_ = !gaveUp_ || now - *gaveUp_ >= rest_;
  end_ = waits_ ? now + length : now;
}

bool Patience::WaitALittle() const {
  const Time now = std::chrono::steady_clock::now();
  if (now >= end_) {
    if (std::exchange(waits_, false)) gaveUp_ = now;
    return false;
  }
  std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return true;
}

bool DatabaseFailure::IsDamage() const {
  const int primary = code_ & 0xFF;
  return primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB;
}

Database::Database(const std::string& path, const Patience& patience) {
  Connect(path, patience);
  Execute("PRAGMA trusted_schema = OFF");
  Execute("PRAGMA cell_size_check = ON");
  Execute("PRAGMA synchronous = EXTRA");
  Query check = Run("PRAGMA quick_check(1)");
  if (check.Step() && check.Text() != "ok") throw DatabaseFailure(SQLITE_CORRUPT, check.Text());
}

void Database::Reset(const std::string& path, const Patience& patience) {
  Database damaged;
  damaged.Connect(path, patience);
  damaged.Check(
      sqlite3_db_config(damaged.connection_.get(), SQLITE_DBCONFIG_RESET_DATABASE, 1, nullptr));
  damaged.Execute("VACUUM");
}

void Database::Connect(const std::string& path, const Patience& patience) {
  sqlite3* connection = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &connection, SQLITE_OPEN_READWRITE, nullptr);
  connection_.reset(connection);
  Check(code);
  sqlite3_extended_result_codes(connection, 1);
  sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, kLongestText);
  sqlite3_busy_handler(connection, WaitForLock, const_cast<Patience*>(&patience));
}

void Database::Query::Bind(int index, const std::optional<std::string>& text) {
  db_.Check(text ? sqlite3_bind_text(statement_, index, text->data(),
                                     static_cast<int>(text->size()), SQLITE_TRANSIENT)
                 : sqlite3_bind_null(statement_, index));
}

bool Database::Query::Step() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) db_.Check(code);
  return false;
}

std::string Database::Query::Text() const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, 0));
  if (!text) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, 0))};
}

sqlite3_stmt* Database::Prepared(const char* sql) {
  auto& statement = statements_[sql];
  if (!statement) {
    sqlite3_stmt* made = nullptr;
    Check(sqlite3_prepare_v2(connection_.get(), sql, -1, &made, nullptr));
    statement.reset(made);
  }
  sqlite3_clear_bindings(statement.get());
  return statement.get();
}

void Database::Check(int code) const {
  if (code == SQLITE_OK) return;
  throw DatabaseFailure(code, sqlite3_errmsg(connection_.get()));
}

}  // namespace sentrel
