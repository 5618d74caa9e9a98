#include "store/sqlite_registry.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <fstream>
#include <memory>

#include "fakes/registry_contract.h"
#include "store_folder.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;
constexpr auto kMachine = RegistryRoot::HKEY_LOCAL_MACHINE;
constexpr auto kUser = RegistryRoot::HKEY_CURRENT_USER;

class OnDisk {
 public:
  Registry& registry() { return registry_; }
  Registry& Reopened() {
    reopened_ = std::make_unique<SqliteRegistry>(folder_.Machine(), folder_.User(), clock_);
    return *reopened_;
  }
  void SetNumber(RegistryRoot root, const std::string& path, const std::string& name) {
    const bool machine = root == kMachine;
    RunSql(machine ? folder_.Machine() : folder_.User(),
           fmt::format("INSERT OR REPLACE INTO options VALUES ('{}\\{}', '{}', 1)",
                       machine ? "HKEY_LOCAL_MACHINE" : "HKEY_CURRENT_USER", path, name)
               .c_str());
  }

 private:
  StoreFolder folder_;
  FakeClock clock_;
  SqliteRegistry registry_{folder_.Machine(), folder_.User(), clock_};
  std::unique_ptr<SqliteRegistry> reopened_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Sqlite, RegistryContract, OnDisk);

using SqliteRegistryTest = StoreTest;

TEST_F(SqliteRegistryTest, ReadingLeavesNothingOnDisk) {
  auto registry = folder_.Registry();
  registry.BeginBatch(RegistryBatch::Read);
  EXPECT_EQ(GetText(registry, kMachine, "a", "x"), "-");
  registry.EndBatch();
  EXPECT_FALSE(DeleteText(registry, kUser, "a", "x"));
  EXPECT_TRUE(fs::is_empty(folder_.Root()));
}

TEST_F(SqliteRegistryTest, OnlyTheOwnerWritesAndOnlyTheMachinesFileIsForAll) {
  const mode_t before = umask(0);
  auto registry = folder_.Registry();
  SetText(registry, kMachine, "a", "x", "1");
  SetText(registry, kUser, "a", "x", "1");
  umask(before);
  const auto mode = [](const fs::path& path) {
    return static_cast<unsigned>(fs::status(path).permissions());
  };
  EXPECT_EQ(mode(folder_.Machine()), 0644U);
  EXPECT_EQ(mode(folder_.Machine().parent_path()), 0755U);
  EXPECT_EQ(mode(folder_.User()), 0600U);
  EXPECT_EQ(mode(folder_.User().parent_path()), 0700U);
}

TEST_F(SqliteRegistryTest, WhatAnAdministratorSetsIsFoundWithoutAKeyOfItsOwn) {
  Set("x", "1");
  RunSql(folder_.Machine(),
         "INSERT INTO options VALUES ('hkey_local_machine\\NEW', 'Y', 'hand-written')");
  auto registry = folder_.Registry();
  EXPECT_EQ(GetText(registry, kMachine, "new", "y"), "hand-written");
}

TEST_F(SqliteRegistryTest, AnOrdinaryUsersWritesLieOverTheMachines) {
  Set("x", "machine");
  Set("y", "machine");
  folder_.LockMachine();
  AsOrdinaryUser([&] {
    EXPECT_EQ(Get("x"), "machine");
    EXPECT_TRUE(Set("x", "mine"));
    EXPECT_TRUE(Delete("y"));
    EXPECT_TRUE(Set("z", "mine"));
    EXPECT_EQ(Get("x") + Get("y") + Get("z"), "mine-mine");
    EXPECT_FALSE(Delete("y"));
    EXPECT_TRUE(Delete("z"));
    EXPECT_EQ(Get("z"), "-");
    EXPECT_TRUE(Set("y", "again"));
    EXPECT_EQ(Get("y"), "again");
  });
  folder_.Unlock();
  const fs::path own = folder_.User();
  fs::rename(own.parent_path(), folder_.Root() / "kept");
  EXPECT_EQ(Get("x") + Get("y"), "machinemachine");
  fs::rename(folder_.Root() / "kept", own.parent_path());
  EXPECT_EQ(Get("x"), "mine");
  EXPECT_TRUE(Set("x", "machine again"));
  EXPECT_EQ(RunSql(own, "SELECT count(*) FROM options WHERE name = 'x'"), "0");
  EXPECT_TRUE(Delete("y"));
  EXPECT_EQ(Get("x") + Get("y"), "machine again-");
}

TEST_F(SqliteRegistryTest, WithoutAMachineFileAnOrdinaryUserKeepsEverythingInTheirOwn) {
  fs::create_directory(folder_.Machine().parent_path());
  folder_.LockMachine();
  AsOrdinaryUser([&] {
    auto registry = folder_.Registry();
    registry.BeginBatch(RegistryBatch::Write);
    EXPECT_TRUE(SetText(registry, kMachine, "a", "x", "1"));
    EXPECT_TRUE(SetText(registry, kMachine, "a", "y", "2"));
    EXPECT_TRUE(DeleteText(registry, kMachine, "a", "y"));
    registry.EndBatch();
    EXPECT_EQ(Get("x") + Get("y"), "1-");
  });
  EXPECT_TRUE(fs::is_empty(folder_.Machine().parent_path()));
}

TEST_F(SqliteRegistryTest, AUserWhoCanWriteNowhereLosesTheWriteInSilence) {
  fs::permissions(folder_.Root(), fs::perms(0555));
  AsOrdinaryUser([&] {
    EXPECT_FALSE(Set("x", "1"));
    EXPECT_EQ(Get("x"), "-");
  });
  fs::permissions(folder_.Root(), fs::perms::all);
}

TEST_F(SqliteRegistryTest, PathsThatAreNoFilesHoldNothingAndTakeNothing) {
  fs::create_directories(folder_.Machine());
  fs::create_directory(folder_.User().parent_path());
  ASSERT_EQ(mkfifo(folder_.User().c_str(), 0600), 0);
  EXPECT_EQ(Get("x"), "-");
  EXPECT_FALSE(Set("x", "1"));
  EXPECT_TRUE(fs::is_directory(folder_.Machine()));
  EXPECT_TRUE(fs::is_fifo(folder_.User()));
}

TEST_F(SqliteRegistryTest, ABusyFileCostsLessThanASecondAndTheUsersFileTakesTheWrite) {
  Set("x", "old");
  const Patience none{std::chrono::milliseconds(0)};
  Database other(folder_.Machine(), none);
  other.Execute("BEGIN EXCLUSIVE");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(Set("x", "new"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
  other.Execute("ROLLBACK");
  EXPECT_EQ(Get("x"), "new");
}

TEST_F(SqliteRegistryTest, ABatchOfReadsOnABusyFileWaitsOnceOnly) {
  Set("x", "old");
  const Patience none{std::chrono::milliseconds(0)};
  Database other(folder_.Machine(), none);
  other.Execute("BEGIN EXCLUSIVE");
  auto registry = folder_.Registry();
  const auto start = std::chrono::steady_clock::now();
  registry.BeginBatch(RegistryBatch::Read);
  for (int i = 0; i < 400; ++i) EXPECT_EQ(GetText(registry, kMachine, "a", "x"), "-");
  registry.EndBatch();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST_F(SqliteRegistryTest, AFileThatStaysBusyIsWaitedForOnceInAWhile) {
  Set("x", "old");
  fs::create_directories(folder_.User().parent_path());
  fs::copy_file(folder_.Machine(), folder_.User());
  const Patience none{std::chrono::milliseconds(0)};
  Database machine(folder_.Machine(), none);
  Database user(folder_.User(), none);
  for (Database* other : {&machine, &user}) other->Execute("BEGIN EXCLUSIVE");
  auto registry = folder_.Registry();
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 20; ++i) EXPECT_FALSE(SetText(registry, kMachine, "a", "x", "new"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
  for (Database* other : {&machine, &user}) other->Execute("ROLLBACK");
  EXPECT_TRUE(SetText(registry, kMachine, "a", "x", "at once"));
  EXPECT_EQ(GetText(registry, kMachine, "a", "x"), "at once");
}

TEST_F(SqliteRegistryTest, ABatchOfReadsTakesNoWrites) {
  Set("x", "old");
  auto reader = folder_.Registry();
  reader.BeginBatch(RegistryBatch::Read);
  EXPECT_EQ(GetText(reader, kMachine, "a", "x"), "old");
  EXPECT_FALSE(SetText(reader, kMachine, "a", "x", "mine"));
  reader.EndBatch();
  EXPECT_EQ(Get("x"), "old");
}

TEST_F(SqliteRegistryTest, AFailedWriteInABatchUndoesTheWhole) {
  Set("x", "old");
  auto registry = folder_.Registry();
  registry.BeginBatch(RegistryBatch::Write);
  EXPECT_TRUE(SetText(registry, kMachine, "a", "x", "new"));
  EXPECT_FALSE(SetText(registry, kMachine, "a", "y", std::string(2 << 20, 'x')));
  registry.EndBatch();
  EXPECT_EQ(Get("x") + Get("y"), "old-");
}

TEST_F(SqliteRegistryTest, AnUnchangedValueWritesNothing) {
  Set("x", "1");
  const auto changeCounter = [this] {
    std::ifstream file(folder_.Machine(), std::ios::binary);
    std::string header(28, ' ');
    file.read(header.data(), 28);
    return header.substr(24);
  };
  const std::string before = changeCounter();
  EXPECT_TRUE(Set("x", "1"));
  EXPECT_EQ(changeCounter(), before);
  EXPECT_TRUE(Set("x", "2"));
  EXPECT_NE(changeCounter(), before);
}

}  // namespace
}  // namespace sentrel
