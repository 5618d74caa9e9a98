#include "store/sqlite_registry.h"

#include <optional>

#include "store_folder.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;
using std::chrono::seconds;

class SqliteRegistryTest : public StoreTest {
 protected:
  SqliteRegistry registry_ = folder_.Registry();
};

TEST_F(SqliteRegistryTest, AValueOfAnotherTypeIsNoTextButCanBeReplacedAndDeleted) {
  for (const char* value : {"1", "2.5", "x'00'", "printf('%2000000d', 1)"}) {
    for (const bool replace : {true, false}) {
      Set("x", "1");
      const auto key = registry_.OpenKey(kMachine, "a");
      RunSql(folder_.Machine(),
             std::string("UPDATE options SET value = ") + value + " WHERE name = 'x'");
      EXPECT_FALSE(registry_.QueryStringValue(*key, "x")) << value;
      EXPECT_TRUE(registry_.CloseKey(*key));
      EXPECT_TRUE(SetText(registry_, kMachine, "a", "y", "reachable")) << value;
      EXPECT_TRUE(replace ? Set("x", "True") : Delete("x"));
      EXPECT_EQ(Get("x"), replace ? "True" : "-");
    }
  }
}

TEST_F(SqliteRegistryTest, ReadingLeavesNothingOnDisk) {
  registry_.BeginBatch(RegistryBatch::Read);
  EXPECT_EQ(GetText(registry_, kMachine, "a", "x"), "-");
  registry_.EndBatch();
  EXPECT_FALSE(DeleteText(registry_, kUser, "a", "x"));
  EXPECT_TRUE(fs::is_empty(folder_.Root()));
}

TEST_F(SqliteRegistryTest, OnlyTheOwnerWritesAndOnlyTheMachinesFileIsForAll) {
  const mode_t before = umask(0);
  SetText(registry_, kMachine, "a", "x", "1");
  SetText(registry_, kUser, "a", "x", "1");
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
  EXPECT_EQ(GetText(registry_, kMachine, "new", "y"), "hand-written");
}

TEST_F(SqliteRegistryTest, AnOrdinaryUsersWritesLieOverTheMachines) {
  const fs::path own = folder_.User();
  AsOrdinaryUser([&] {
    Set("x", "machine");
    Set("y", "machine");
    folder_.LockMachine();
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
    folder_.Unlock();
    fs::rename(own.parent_path(), folder_.Root() / "kept");
    EXPECT_EQ(Get("x") + Get("y"), "machinemachine");
    fs::rename(folder_.Root() / "kept", own.parent_path());
    EXPECT_EQ(Get("x"), "mine");
    EXPECT_TRUE(Set("x", "machine again"));
    EXPECT_EQ(RunSql(own, "SELECT count(*) FROM options WHERE name = 'x'"), "0");
    EXPECT_TRUE(Delete("y"));
    EXPECT_EQ(Get("x") + Get("y"), "machine again-");
  });
}

TEST_F(SqliteRegistryTest, WithoutAMachineFileAnOrdinaryUserKeepsEverythingInTheirOwn) {
  fs::create_directory(folder_.Machine().parent_path());
  folder_.LockMachine();
  AsOrdinaryUser([&] {
    registry_.BeginBatch(RegistryBatch::Write);
    EXPECT_TRUE(SetText(registry_, kMachine, "a", "x", "1"));
    EXPECT_TRUE(SetText(registry_, kMachine, "a", "y", "2"));
    EXPECT_TRUE(DeleteText(registry_, kMachine, "a", "y"));
    registry_.EndBatch();
    EXPECT_EQ(Get("x") + Get("y"), "1-");
  });
  EXPECT_TRUE(fs::is_empty(folder_.Machine().parent_path()));
}

TEST_F(SqliteRegistryTest, WhereNothingCanBeWrittenTheWriteIsLostInSilence) {
  const auto losesWrites = [this] {
    EXPECT_FALSE(Set("x", "1"));
    EXPECT_EQ(Get("x"), "-");
  };
  fs::permissions(folder_.Root(), fs::perms(0555));
  AsOrdinaryUser(losesWrites);
  fs::permissions(folder_.Root(), fs::perms::all);

  fs::create_directories(folder_.Machine());
  fs::create_directory(folder_.User().parent_path());
  ASSERT_EQ(mkfifo(folder_.User().c_str(), 0600), 0);
  losesWrites();
  EXPECT_TRUE(fs::is_directory(folder_.Machine()));
  EXPECT_TRUE(fs::is_fifo(folder_.User()));
}

TEST_F(SqliteRegistryTest, ABusyFileIsWaitedForOnceAndTheUsersFileTakesTheWrite) {
  Set("x", "old");
  std::optional<Occupied> other(folder_.Machine());
  auto start = std::chrono::steady_clock::now();
  registry_.BeginBatch(RegistryBatch::Read);
  for (int i = 0; i < 400; ++i) EXPECT_EQ(GetText(registry_, kMachine, "a", "x"), "-");
  registry_.EndBatch();
  EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(1));
  start = std::chrono::steady_clock::now();
  EXPECT_TRUE(Set("x", "new"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(1));
  other.reset();
  EXPECT_EQ(Get("x"), "new");
}

TEST_F(SqliteRegistryTest, AFileThatStaysBusyIsWaitedForOnceInAWhile) {
  Set("x", "old");
  fs::create_directories(folder_.User().parent_path());
  fs::copy_file(folder_.Machine(), folder_.User());
  std::optional<Occupied> machine(folder_.Machine());
  std::optional<Occupied> user(folder_.User());
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 20; ++i) EXPECT_FALSE(SetText(registry_, kMachine, "a", "x", "new"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(3));
  machine.reset();
  user.reset();
  EXPECT_TRUE(SetText(registry_, kMachine, "a", "x", "at once"));
  EXPECT_EQ(GetText(registry_, kMachine, "a", "x"), "at once");
}

TEST_F(SqliteRegistryTest, AnUnchangedValueWritesNothing) {
  Set("x", "1");
  const auto changeCounter = [this] { return ReadFile(folder_.Machine()).substr(24, 4); };
  const std::string before = changeCounter();
  EXPECT_TRUE(Set("x", "1"));
  EXPECT_EQ(changeCounter(), before);
  EXPECT_TRUE(Set("x", "2"));
  EXPECT_NE(changeCounter(), before);
}

}  // namespace
}  // namespace sentrel
