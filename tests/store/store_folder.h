#pragma once

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "fakes/fake_console.h"
#include "fakes/registry_access.h"
#include "fakes/shell.h"
#include "store/database.h"
#include "store/sqlite_registry.h"
#include "store/write_signals.h"

namespace sentrel {

inline constexpr auto kMachine = RegistryRoot::HKEY_LOCAL_MACHINE;
inline constexpr auto kUser = RegistryRoot::HKEY_CURRENT_USER;

/// A folder that everybody may use and that goes with all that is in it, with the paths of a
/// machine's and a user's file.
class StoreFolder {
 public:
  StoreFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "sentrel-store-XXXXXX");
    root_ = mkdtemp(pattern.data());
    std::filesystem::permissions(root_, std::filesystem::perms::all);
  }
  ~StoreFolder() {
    Unlock();
    std::filesystem::remove_all(root_);
  }

  const std::filesystem::path& Root() const { return root_; }
  std::filesystem::path Machine() const { return root_ / "machine" / "registry.db"; }
  std::filesystem::path User() const { return root_ / "user" / "registry.db"; }
  SqliteRegistry Registry() const { return {Machine(), User(), clock_}; }

  /// Takes the machine's folder and file out of the reach of an ordinary user's writes.
  void LockMachine() const { SetMachineAccess(0444, 0555); }
  void Unlock() const { SetMachineAccess(0644, 0755); }

 private:
  void SetMachineAccess(unsigned file, unsigned folder) const {
    using std::filesystem::perms;
    std::error_code ignored;
    std::filesystem::permissions(Machine().parent_path(), perms(0755), ignored);
    std::filesystem::permissions(Machine(), perms(file), ignored);
    std::filesystem::permissions(Machine().parent_path(), perms(folder), ignored);
  }

  std::filesystem::path root_;
  FakeClock clock_;
};

/// Starts a step in a process of its own, which ends with 0 unless an expectation failed in it.
inline pid_t Start(const std::function<void()>& step) {
  const pid_t child = fork();
  if (child != 0) return child;
  step();
  _exit(testing::Test::HasFailure() ? 1 : 0);
}

inline void ExpectSuccess(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0) << "in a process of its own";
}

/// Runs a step in a process of its own, as a user without privileges.
inline void AsOrdinaryUser(const std::function<void()>& step) {
  ExpectSuccess(Start([&] {
    constexpr uid_t kNobody = 65534;
    if (getuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(2);
    step();
  }));
}

/// Runs a step in a process of its own, for which files end at this size.
inline void OnAFullDisk(rlim_t size, const std::function<void()>& step) {
  ExpectSuccess(Start([&] {
    IgnoreWriteSignals();
    const rlimit limit{size, RLIM_INFINITY};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    step();
  }));
}

/// Runs a statement on a file, as an administrator might; returns the last value that it gives.
inline std::string RunSql(const std::filesystem::path& file, const std::string& sql) {
  std::string result;
  const auto keep = [](void* kept, int columns, char** values, char**) {
    if (columns > 0 && values[0]) *static_cast<std::string*>(kept) = values[0];
    return 0;
  };
  sqlite3* database = nullptr;
  EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, sql.c_str(), keep, &result, nullptr), SQLITE_OK) << sql;
  sqlite3_close(database);
  return result;
}

/// A file that another process keeps for itself while this object lives.
class Occupied {
 public:
  explicit Occupied(const std::filesystem::path& file) : database_(file, none_) {
    database_.Execute("BEGIN EXCLUSIVE");
  }

 private:
  const Patience none_{std::chrono::seconds(0)};
  Database database_;
};

/// Works on values of one key of the machine, each time with a registry of its own.
class StoreTest : public testing::Test {
 protected:
  std::string Get(const std::string& name) const {
    auto registry = folder_.Registry();
    return GetText(registry, kMachine, "a", name);
  }
  bool Set(const std::string& name, const std::string& text) const {
    auto registry = folder_.Registry();
    return SetText(registry, kMachine, "a", name, text);
  }
  bool Delete(const std::string& name) const {
    auto registry = folder_.Registry();
    return DeleteText(registry, kMachine, "a", name);
  }

  StoreFolder folder_;
};

}  // namespace sentrel
