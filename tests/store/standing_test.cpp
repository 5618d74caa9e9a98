#include "store/standing.h"

#include "store_folder.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kNobody = 65534;
constexpr uid_t kStranger = 1234;

/// A store that the process has made in a folder of its own, and what becomes of it.
struct StandingTest : StoreTest {
  StandingTest() {
    auto registry = folder_.Registry();
    EXPECT_TRUE(SetText(registry, kUser, "a", "x", "1"));
  }
  static void Give(const fs::path& path, uid_t owner) {
    EXPECT_EQ(lchown(path.c_str(), owner, static_cast<gid_t>(-1)), 0) << path;
  }

  fs::path file = folder_.User();
  fs::path folder = file.parent_path();
  fs::path elsewhere = folder_.Root() / "elsewhere";
};

TEST_F(StandingTest, WhatOthersMayWriteIsForeign) {
  const auto after = [&](const fs::path& path, unsigned mode) {
    const auto before = fs::status(path).permissions();
    fs::permissions(path, fs::perms(mode));
    const Standing standing = StandingOf(file);
    fs::permissions(path, before);
    return standing;
  };
  EXPECT_EQ(StandingOf(file), Standing::Trusted);
  EXPECT_EQ(StandingOf(folder / "other.db"), Standing::Absent);
  EXPECT_EQ(after(file, 0646), Standing::Foreign);
  EXPECT_EQ(after(folder, 0757), Standing::Foreign);
  EXPECT_EQ(after(folder, 01777), Standing::Foreign);
  for (const char* ending : {"-journal", "-wal", "-shm"}) {
    const fs::path companion = file.native() + ending;
    std::ofstream(companion).flush();
    EXPECT_EQ(after(companion, 0600), Standing::Trusted);
    EXPECT_EQ(after(companion, 0602), Standing::Foreign) << ending;
    fs::remove(companion);
  }
}

TEST_F(StandingTest, ALinkStandsAsWhatItLeadsTo) {
  fs::create_directory(elsewhere);
  fs::rename(file, elsewhere / "real.db");
  fs::create_symlink(elsewhere / "real.db", file);
  EXPECT_EQ(StandingOf(file), Standing::Trusted);
  fs::permissions(elsewhere, fs::perms(0757));
  EXPECT_EQ(StandingOf(file), Standing::Foreign);
  fs::remove(elsewhere / "real.db");
  EXPECT_ANY_THROW(StandingOf(file));
}

TEST_F(StandingTest, OnlyTheUsersAndRootsFilesAreObeyedAndByRootOnlyRoots) {
  if (geteuid() != 0) GTEST_SKIP() << "only root gives files away";
  const auto expect = [&](Standing forUser, Standing forRoot) {
    AsOrdinaryUser([&] { EXPECT_EQ(StandingOf(file), forUser); });
    EXPECT_EQ(StandingOf(file), forRoot);
  };
  fs::permissions(folder, fs::perms(0755));
  expect(Standing::Trusted, Standing::Trusted);
  const fs::path journal = file.native() + "-journal";
  std::ofstream(journal).flush();
  for (const fs::path& part : {journal, file, folder}) {
    Give(part, kNobody);
    expect(Standing::Trusted, Standing::Foreign);
    Give(part, kStranger);
    expect(Standing::Foreign, Standing::Foreign);
    Give(part, 0);
  }
  fs::permissions(file, fs::perms(0660));
  EXPECT_EQ(StandingOf(file), Standing::Trusted) << "root's own group";
  EXPECT_EQ(chown(file.c_str(), 0, 100), 0);
  expect(Standing::Foreign, Standing::Foreign);
}

TEST_F(StandingTest, RootLeavesAUsersStoreAlone) {
  if (geteuid() != 0) GTEST_SKIP() << "only root gives files away";
  Give(folder, kNobody);
  Give(file, kNobody);
  const std::string before = ReadFile(file);
  const auto expectNothing = [this] {
    auto registry = folder_.Registry();
    EXPECT_EQ(GetText(registry, kUser, "a", "x"), "-");
    EXPECT_FALSE(SetText(registry, kUser, "a", "x", "2"));
    EXPECT_TRUE(Set("x", "the machine's"));
  };
  expectNothing();
  EXPECT_EQ(ReadFile(file), before);
  fs::remove(file);
  expectNothing();
  EXPECT_TRUE(fs::is_empty(folder)) << "nothing is made in it either";

  // A link of the user's to a folder of root's, without a store and with one.
  fs::remove(folder);
  fs::create_directory(elsewhere);
  fs::create_symlink(elsewhere, folder);
  Give(folder, kNobody);
  expectNothing();
  EXPECT_TRUE(fs::is_empty(elsewhere));
  std::ofstream(elsewhere / "registry.db", std::ios::binary) << before;
  expectNothing();
}

}  // namespace
}  // namespace sentrel
