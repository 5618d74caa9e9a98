#include "store/registry_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "store/recovered_copy.h"
#include "store/set_aside.h"

namespace sentrel {
namespace fs = std::filesystem;
namespace {

constexpr const char* kTables[] = {
    "CREATE TABLE IF NOT EXISTS keys ("
    "path TEXT PRIMARY KEY COLLATE NOCASE) WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS options ("
    "key TEXT COLLATE NOCASE, name TEXT COLLATE NOCASE, value, "
    "PRIMARY KEY (key, name)) WITHOUT ROWID"};

/// SQL on the entries of a key's list: what has a name of digits alone.
std::string OnEntries(const std::string& action) {
  return action +
         " FROM options WHERE key = ?1 AND name GLOB '[0-9]*' AND name NOT GLOB '*[^0-9]*'";
}

/// Nothing, or false, where the step failed.
template <typename Step>
auto ResultOf(Step step) {
  decltype(step()) result{};
  Attempt([&] { result = step(); });
  return result;
}

}  // namespace

RegistryFile::RegistryFile(fs::path path, Audience audience, const Clock& clock,
                           const Patience& patience)
    : path_(std::move(path)), audience_(audience), clock_(clock), patience_(patience) {}

template <typename Question>
auto RegistryFile::Ask(Question question) {
  std::optional<decltype(question())> answer;
  Attempt([&] {
    if (Open()) {
      answer = question();
    } else {
      answer.emplace();
    }
  });
  return answer;
}

std::optional<bool> RegistryFile::HasKey(const std::string& key) {
  return Ask([&] {
    return (hasKeys_ && db_->Run("SELECT 1 FROM keys WHERE path = ?1", key).Step()) ||
           (hasOptions_ && db_->Run("SELECT 1 FROM options WHERE key = ?1", key).Step());
  });
}

std::optional<bool> RegistryFile::HasEntries(const std::string& key) {
  return Ask([&] { return hasOptions_ && db_->Run(OnEntries("SELECT 1").c_str(), key).Step(); });
}

RegistryFile::Value RegistryFile::Get(const std::string& key, const std::string& name) {
  const auto value = Ask([&]() -> Value {
    if (!hasOptions_) return {};
    auto row = db_->Run("SELECT value FROM options WHERE key = ?1 AND name = ?2", key, name);
    try {
      if (!row.Step()) return {};
    } catch (const DatabaseFailure& failure) {
      if (failure.IsTooLarge()) return {Kind::OtherType, {}};
      throw;
    }
    if (row.Type() == SQLITE_NULL) return {Kind::Deleted, {}};
    return row.Type() == SQLITE_TEXT ? Value{Kind::Text, row.Text()} : Value{Kind::OtherType, {}};
  });
  return value.value_or(Value{Kind::Unreadable, {}});
}

bool RegistryFile::CanWrite() {
  if (writing_) return true;
  writing_ = true;
  const bool taken = ResultOf([&] {
    if (!Open() && !(Make() && Open())) return false;
    if (!IsWritable()) return false;
    db_->Execute("BEGIN IMMEDIATE");
    for (const char* table : kTables) db_->Execute(table);
    hasKeys_ = hasOptions_ = true;
    return true;
  });
  if (!taken) EndTransaction();
  return taken;
}

bool RegistryFile::MakeKey(const std::string& key) {
  return ResultOf([&] {
    const auto root = key.find('\\');
    for (auto end = key.find('\\', root + 1);; end = key.find('\\', end + 1)) {
      db_->Execute("INSERT OR IGNORE INTO keys VALUES (?1)", key.substr(0, end));
      if (end == std::string::npos) return true;
    }
  });
}

bool RegistryFile::Set(const std::string& key, const std::string& name,
                       const std::optional<std::string>& text) {
  return ResultOf([&] {
    // One that is too large could not even be compared.
    if (Get(key, name).kind == Kind::OtherType) Remove(key, name);
    db_->Execute(
        "INSERT INTO options VALUES (?1, ?2, ?3) ON CONFLICT DO "
        "UPDATE SET value = excluded.value WHERE value IS NOT excluded.value",
        key, name, text);
    return true;
  });
}

bool RegistryFile::Remove(const std::string& key, const std::string& name) {
  return ResultOf([&] {
    db_->Execute("DELETE FROM options WHERE key = ?1 AND name = ?2", key, name);
    return true;
  });
}

bool RegistryFile::RemoveEntries(const std::string& key) {
  return ResultOf([&] {
    db_->Execute(OnEntries("DELETE").c_str(), key);
    return true;
  });
}

bool RegistryFile::Commit() {
  const bool committed = !writing_ || Attempt([&] { db_->Execute("COMMIT"); });
  Rollback();
  return committed;
}

void RegistryFile::Rollback() {
  EndTransaction();
  batch_.reset();
}

void RegistryFile::EndTransaction() {
  if (db_ && db_->InTransaction()) {
    Attempt([&] { db_->Execute("ROLLBACK"); });
    // Its tables may have been of this transaction.
    if (writing_) db_.reset();
  }
  writing_ = false;
}

void RegistryFile::Close() {
  Rollback();
  db_.reset();
  standing_.reset();
}

bool RegistryFile::Open() {
  if (db_) return true;
  if (!standing_) standing_ = StandingOf(path_);
  if (standing_ != Standing::Trusted) return false;
  auto database = OpenSound();
  if (batch_ && batch_ != RegistryBatch::Write) database->Execute("BEGIN");
  const auto has = [&](const char* table) {
    return database->Run("SELECT 1 FROM sqlite_schema WHERE name = ?1", std::string(table)).Step();
  };
  hasKeys_ = has("keys");
  hasOptions_ = has("options");
  db_ = std::move(database);
  return true;
}

std::unique_ptr<Database> RegistryFile::OpenSound() const {
  try {
    return std::make_unique<Database>(path_, patience_);
  } catch (const DatabaseFailure& failure) {
    if (failure.IsUnfinishedWrite()) return OpenRecoveredCopy(path_, patience_);
    if (!failure.IsDamage() || !IsWritable()) throw;
  }
  SetAside(path_, clock_.Now(), patience_);
  return std::make_unique<Database>(path_, patience_);
}

bool RegistryFile::Make() {
  if (standing_ != Standing::Absent) return false;
  standing_.reset();
  const bool shared = audience_ == Audience::Everybody;
  const fs::path folder = path_.parent_path();
  std::error_code ignored;
  fs::create_directories(folder.parent_path(), ignored);
  if (mkdir(folder.c_str(), 0700) == 0 && shared) chmod(folder.c_str(), 0755);
  const int descriptor = open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (descriptor < 0) return errno == EEXIST;
  if (shared) fchmod(descriptor, 0644);
  close(descriptor);
  return true;
}

bool RegistryFile::IsWritable() const {
  return eaccess(path_.c_str(), W_OK) == 0 && eaccess(path_.parent_path().c_str(), W_OK) == 0;
}

}  // namespace sentrel
