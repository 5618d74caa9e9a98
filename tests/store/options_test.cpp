// What a run makes of options that it cannot read, and how a user's lists lie over the machine's.

#include <optional>
#include <thread>

#include "settings/settings.h"
#include "store_folder.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

/// A run of the program, as far as its options go.
struct ProgramRun {
  explicit ProgramRun(const StoreFolder& folder) : registry(folder.Registry()) {}

  Texts Communities() const { return settings.CommunityStrings()->CStrings(); }
  void SetCommunities(const Texts& texts) const {
    settings.CommunityStrings()->Clear();
    for (const std::string& text : texts) settings.CommunityStrings()->Add(text);
    settings.CommunityStrings()->Sync();
  }
  void SetFilter(const std::string& text) const {
    settings.DeviceFilters()->Clear();
    settings.DeviceFilters()->AddFilter(text);
    settings.DeviceFilters()->Sync();
  }

  SqliteRegistry registry;
  Settings settings{registry};
};

/// The machine has both lists and filters devices; the user has a log file of their own.
class OptionsTest : public StoreTest {
 protected:
  /// As whoever calls it.
  void Fill() const {
    ProgramRun run(folder_);
    run.SetFilter("10.0.1.1");
    run.SetCommunities({"a", "b", "c"});
    run.settings.SetDeviceFilterActive(true);
    ASSERT_TRUE(SetText(run.registry, kUser, "a", "x", "makes the file"));
    Overlay("Settings", "Log Filename", "'own.log'");
  }
  void Overlay(const std::string& section, const std::string& name,
               const std::string& value) const {
    RunSql(folder_.User(),
           "INSERT INTO options VALUES ('HKEY_LOCAL_MACHINE\\Software\\VarnholtNet\\Sentrel\\" +
               section + "', '" + name + "', " + value + ")");
  }
  void ExpectOptionsOfOld() const {
    const ProgramRun run(folder_);
    EXPECT_TRUE(run.settings.DeviceFilterActive());
    EXPECT_FALSE(run.settings.Raw());
    EXPECT_EQ(run.settings.LogFilename(), "own.log");
    EXPECT_THAT(run.settings.DeviceFilters()->Keys(), ElementsAre("10.0.1.1"));
    EXPECT_THAT(run.Communities(), ElementsAre("a", "b", "c"));
  }
  /// Entries that a file holds, with their names.
  static std::string Communities(const fs::path& file) {
    return RunSql(file,
                  "SELECT group_concat(name || ifnull(value, '-'), ' ') FROM options "
                  "WHERE key LIKE '%Community Strings'");
  }
};

TEST_F(OptionsTest, WhatCouldNotBeReadIsNotWrittenByAnyoneInThatRun) {
  AsOrdinaryUser([this] {
    Fill();
    const fs::path machine = folder_.Machine();
    const fs::path user = folder_.User();
    const fs::path aside = folder_.Root() / "user" / "aside";
    const std::string sound = ReadFile(machine);
    std::optional<Occupied> other;
    const struct {
      const char* name;
      std::function<void()> begin;
      std::function<void()> end;
    } troubles[] = {
        {"locked", [&] { other.emplace(machine); }, [&] { other.reset(); }},
        {"no right to read", [&] { fs::permissions(machine, fs::perms::none); },
         [&] { folder_.Unlock(); }},
        {"no right to look", [&] { fs::permissions(user.parent_path(), fs::perms::none); },
         [&] { fs::permissions(user.parent_path(), fs::perms::owner_all); }},
        {"damaged beyond this user's reach",
         [&] {
           std::ofstream(machine, std::ios::in).write("damage", 6);
           folder_.LockMachine();
         },
         [&] {
           folder_.Unlock();
           std::ofstream(machine) << sound;
         }},
        {"a link into nowhere",
         [&] {
           fs::rename(user, aside);
           fs::create_symlink("nowhere", user);
         },
         [&] { fs::rename(aside, user); }},
    };
    for (const auto& trouble : troubles) {
      SCOPED_TRACE(trouble.name);
      trouble.begin();
      ProgramRun run(folder_);
      trouble.end();
      EXPECT_FALSE(run.settings.DeviceFilterActive());
      EXPECT_THAT(run.Communities(), IsEmpty());
      EXPECT_EQ(run.settings.LogFilename(), "");
      run.settings.SetRaw(true);
      run.settings.SetDeviceFilterActive(true);
      run.SetFilter("192.0.2.1");
      run.SetCommunities({"mine"});
      run.SetCommunities({});
      EXPECT_TRUE(run.settings.Raw()) << "for this run";
      ExpectOptionsOfOld();
    }
  });
}

/// A wait is what is tested: the lock goes after a time that is longer than a change waits.
TEST_F(OptionsTest, AStartWaitsForALockedStore) {
  Fill();
  std::optional<Occupied> other(folder_.Machine());
  std::thread holder([&] {
    Patience held{milliseconds(1500)};
    held.Renew();
    while (held.WaitALittle()) {
    }
    other.reset();
  });
  ExpectOptionsOfOld();
  holder.join();
}

TEST_F(OptionsTest, AKeyThatCouldBeReadInPartOnlyTakesNothingUntilItIsReadAgain) {
  Fill();
  auto registry = folder_.Registry();
  const auto key = registry.OpenKey(kUser, "a");
  ASSERT_TRUE(key);
  std::optional<Occupied> other(folder_.User());
  EXPECT_FALSE(registry.QueryStringValue(*key, "x"));
  other.reset();
  registry.CloseKey(*key);
  EXPECT_TRUE(registry.IsUnreachable(kUser, "A"));
  EXPECT_FALSE(SetText(registry, kUser, "a", "x", "written over"));
  EXPECT_TRUE(SetText(registry, kUser, "b", "x", "another key"));
  EXPECT_EQ(GetText(registry, kUser, "a", "x"), "makes the file");
  EXPECT_TRUE(SetText(registry, kUser, "a", "x", "seen"));
}

TEST_F(OptionsTest, AUsersListHidesTheMachinesWhole) {
  const struct {
    Texts overlay;
    Texts seen;
  } cases[] = {{{}, {"a", "b", "c"}},
               {{"1", "'x'"}, {"x"}},
               {{"3", "'x'"}, {"x"}},
               {{"5", "NULL"}, {}},
               {{"name", "'no entry'"}, {"a", "b", "c"}}};
  for (const auto& [overlay, seen] : cases) {
    Fill();
    if (!overlay.empty()) Overlay("Community Strings", overlay[0], overlay[1]);
    ProgramRun run(folder_);
    EXPECT_EQ(run.Communities(), seen);
    run.SetCommunities({"y"});
    EXPECT_EQ(Communities(folder_.Machine()), "1y");
    EXPECT_EQ(ProgramRun(folder_).Communities(), Texts{"y"});
    run.SetCommunities({});
    EXPECT_EQ(Communities(folder_.Machine()), "");
    fs::remove_all(folder_.Machine().parent_path());
    fs::remove_all(folder_.User().parent_path());
  }
}

TEST_F(OptionsTest, AListThatTheMachineDoesNotTakeGoesToTheUserWhole) {
  AsOrdinaryUser([this] {
    Fill();
    folder_.LockMachine();
    for (const Texts& texts : {Texts{"x"}, Texts{}, Texts{"a", "b"}}) {
      ProgramRun(folder_).SetCommunities(texts);
      EXPECT_EQ(ProgramRun(folder_).Communities(), texts);
    }
    EXPECT_EQ(Communities(folder_.Machine()), "1a 2b 3c");
    folder_.Unlock();
    ProgramRun(folder_).SetCommunities({"y"});
    EXPECT_EQ(Communities(folder_.Machine()) + Communities(folder_.User()), "1y");

    ProgramRun run(folder_);
    const Occupied other(folder_.Machine());
    run.SetCommunities({});
    EXPECT_EQ(Communities(folder_.User()), "1-") << "emptied while the machine's is locked";
  });
}

}  // namespace
}  // namespace sentrel
