#include <fmt/format.h>

#include <map>

#include "store_folder.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

const std::string kLong(60, 'x');

class Damage : public StoreTest {
 protected:
  void SetUp() override {
    auto registry = folder_.Registry();
    registry.BeginBatch(RegistryBatch::Write);
    for (int i = 0; i < 200; ++i)
      ASSERT_TRUE(SetText(registry, kMachine, "a", std::to_string(i), kLong));
    ASSERT_TRUE(SetText(registry, kUser, "a", "other file", "kept"));
    registry.EndBatch();
  }

  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.Machine().parent_path()))
      names.push_back(entry.path().filename());
    return names;
  }
  void Overwrite(std::streamoff offset, std::size_t count) {
    std::fstream file(folder_.Machine(), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(offset);
    file << std::string(count, '\xA5');
  }
};

TEST_F(Damage, SetsTheFileAsideAndBeginsAFreshOne) {
  const std::function<void()> damages[] = {
      [&] { Overwrite(0, 100); },                               // no database any more
      [&] { Overwrite(4096, 3000); },                           // a damaged table
      [&] { fs::resize_file(folder_.Machine(), 4096 + 100); },  // cut off
  };
  const std::string aside = "registry.db.damaged-20261205-154937";
  for (const auto& damage : damages) {
    damage();
    const std::string damaged = ReadFile(folder_.Machine());
    EXPECT_TRUE(Set("x", "fresh"));
    EXPECT_THAT(Names(), UnorderedElementsAre("registry.db", aside));
    EXPECT_EQ(ReadFile(folder_.Machine().parent_path() / aside), damaged);
    EXPECT_EQ(Get("x") + Get("1"), "fresh-");
    auto registry = folder_.Registry();
    EXPECT_EQ(GetText(registry, kUser, "a", "other file"), "kept");
    fs::remove(folder_.Machine());
    fs::remove(folder_.Machine().parent_path() / aside);
    SetUp();
  }
}

TEST_F(Damage, AReadSetsAsideTooAndASecondTimeFindsAnotherName) {
  for (int i = 0; i < 2; ++i) {
    Overwrite(0, 100);
    EXPECT_EQ(Get("1"), "-");
    EXPECT_EQ(RunSql(folder_.Machine(), "PRAGMA quick_check"), "ok");
    SetUp();
  }
  EXPECT_THAT(Names(), UnorderedElementsAre("registry.db", "registry.db.damaged-20261205-154937",
                                            "registry.db.damaged-20261205-154937-2"));
}

TEST_F(Damage, OfManyProcessesThatFindItOneSetsTheFileAside) {
  constexpr int kWriters = 6;
  for (int round = 0; round < 10; ++round) {
    Overwrite(0, 100);
    std::map<std::string, pid_t> writers;
    for (int i = 0; i < kWriters; ++i) {
      const std::string name = fmt::format("{}.{}", round, i);
      writers[name] = Start([&] { EXPECT_TRUE(Set(name, "x")); });
    }
    for (const auto& [name, writer] : writers) ExpectSuccess(writer);
    for (const auto& [name, writer] : writers) EXPECT_EQ(Get(name), "x");
    EXPECT_EQ(Names().size(), static_cast<std::size_t>(round + 2));
  }
}

TEST_F(Damage, AnOrdinaryUserLeavesTheMachinesFileAndSeesTheirOwnWhenItIsRepaired) {
  Overwrite(0, 100);
  folder_.LockMachine();
  fs::remove_all(folder_.User().parent_path());
  AsOrdinaryUser([&] {
    EXPECT_EQ(Get("x"), "-");
    EXPECT_TRUE(Set("x", "mine"));
    EXPECT_EQ(Get("x"), "-");
  });
  EXPECT_THAT(Names(), UnorderedElementsAre("registry.db"));
  folder_.Unlock();
  EXPECT_EQ(Get("y"), "-") << "this repairs it";
  AsOrdinaryUser([&] { EXPECT_EQ(Get("x"), "mine"); });
}

TEST_F(Damage, AnEmptyFileAndOneOfOtherTablesTakeOptions) {
  fs::resize_file(folder_.Machine(), 0);
  EXPECT_EQ(Get("x"), "-");
  EXPECT_TRUE(Set("x", "1"));
  EXPECT_EQ(Get("x"), "1");
  RunSql(folder_.Machine(), "DROP TABLE options");
  EXPECT_EQ(Get("x"), "-");
  EXPECT_TRUE(Set("x", "2"));
  EXPECT_EQ(Get("x"), "2");
  EXPECT_THAT(Names(), UnorderedElementsAre("registry.db"));
}

TEST_F(Damage, AFullDiskLosesTheWriteAndNothingElse) {
  OnAFullDisk(1000, [&] {
    EXPECT_FALSE(Set("x", "new"));
    EXPECT_EQ(Get("1"), kLong);
  });
  EXPECT_EQ(Get("x"), "-");
  EXPECT_EQ(Get("1"), kLong);
  EXPECT_THAT(Names(), UnorderedElementsAre("registry.db"));
}

/// Leaves a transaction half written, as a process does that is killed in the middle.
void DieWhileWriting(const fs::path& file) {
  const pid_t child = Start([&] {
    const Patience none{std::chrono::milliseconds(0)};
    Database database(file, none);
    database.Execute("PRAGMA cache_size = 1");
    database.Execute("BEGIN IMMEDIATE");
    database.Execute("UPDATE options SET value = 'half written'");
    database.Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
        "INSERT INTO options SELECT 'b', i, 'filler that makes the pages spill' FROM n");
    raise(SIGKILL);
  });
  waitpid(child, nullptr, 0);
  ASSERT_TRUE(fs::exists(file.native() + "-journal"));
  ASSERT_NE(ReadFile(file).find("half written"), std::string::npos);
}

TEST_F(Damage, AHalfWrittenFileIsReadAsItWasBeforeAndRepairedByWhoeverMayWriteIt) {
  DieWhileWriting(folder_.Machine());
  folder_.LockMachine();
  fs::remove_all(folder_.User().parent_path());
  AsOrdinaryUser([&] {
    EXPECT_EQ(Get("1"), kLong);
    EXPECT_TRUE(Set("x", "mine"));
    EXPECT_EQ(Get("x"), "mine");
  });
  EXPECT_TRUE(fs::exists(folder_.Machine().native() + "-journal"));
  folder_.Unlock();
  EXPECT_EQ(Get("2"), kLong);
  EXPECT_FALSE(fs::exists(folder_.Machine().native() + "-journal"));
}

}  // namespace
}  // namespace sentrel
