#include <fmt/format.h>

#include <csignal>
#include <random>

#include "settings/settings.h"
#include "store_folder.h"

namespace sentrel {
namespace {

/// A stored list of device filters, which are all of one network.
class ManyProcesses : public StoreTest {
 protected:
  ManyProcesses() {
    Rewrite(0, [] {});
  }

  /// Calls the step when all but the write is done.
  void Rewrite(int network, const std::function<void()>& beforeWrite) {
    DeviceFilters filters{RegistrySupport(registry_)};
    for (int i = 1; i <= 200; ++i) filters.AddFilter(fmt::format("10.{}.0.{}", network, i));
    beforeWrite();
    filters.Sync();
  }
  void ExpectWholeList() {
    const auto keys = Settings(registry_).DeviceFilters()->Keys();
    ASSERT_EQ(keys.size(), 200U);
    const auto network = keys.front().substr(0, keys.front().rfind('.'));
    for (const std::string& key : keys) ASSERT_EQ(key.substr(0, key.rfind('.')), network);
  }

  SqliteRegistry registry_ = folder_.Registry();
};

TEST_F(ManyProcesses, EveryWriteOfEveryOneArrives) {
  std::vector<std::string> names;
  for (int i = 0; i < 50; ++i) names.push_back(std::to_string(i));
  const auto writeAll = [&](const std::string& writer) {
    for (const std::string& name : names) EXPECT_TRUE(Set(writer + name, "x"));
  };
  const pid_t writers[] = {Start([&] { writeAll("a"); }), Start([&] { writeAll("b"); })};
  for (const pid_t writer : writers) ExpectSuccess(writer);
  for (const std::string& name : names) EXPECT_EQ(Get("a" + name) + Get("b" + name), "xx");
}

TEST_F(ManyProcesses, AListIsReadWholeWhileAnotherProcessRewritesIt) {
  const pid_t child = Start([this] {
    for (int network = 1; network <= 20; ++network) Rewrite(network, [] {});
  });
  while (waitpid(child, nullptr, WNOHANG) == 0) ExpectWholeList();
}

TEST_F(ManyProcesses, AWriterKilledAtAnyMomentLeavesTheOldOrTheNewList) {
  std::mt19937 random(9);
  int journals = 0;
  for (int round = 0; round < 200; ++round) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = Start([&] {
      const auto tell = [&] { ASSERT_EQ(write(ends[1], "", 1), 1); };
      for (int network = 0;; network = 1 - network) Rewrite(network, tell);
    });
    close(ends[1]);
    char byte = 0;
    for (unsigned writes = 1 + random() % 2; writes > 0; --writes)
      ASSERT_EQ(read(ends[0], &byte, 1), 1);
    const auto moment =
        std::chrono::steady_clock::now() + std::chrono::microseconds(random() % 6000);
    while (std::chrono::steady_clock::now() < moment) {
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(ends[0]);

    journals += std::filesystem::exists(folder_.Machine().native() + "-journal") ? 1 : 0;
    ExpectWholeList();
    ASSERT_EQ(RunSql(folder_.Machine(), "PRAGMA integrity_check"), "ok");
  }
  EXPECT_GT(journals, 0) << "no kill came in the middle of a write";
}

}  // namespace
}  // namespace sentrel
