#include <fmt/format.h>
#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <random>

#include "settings/settings.h"
#include "store_folder.h"

namespace sentrel {
namespace {

constexpr auto kMachine = RegistryRoot::HKEY_LOCAL_MACHINE;

void Fill(DeviceFilters& filters, int network) {
  filters.Clear();
  for (int i = 1; i <= 200; ++i) filters.AddFilter(fmt::format("10.{}.0.{}", network, i));
}

TEST(ManyProcesses, EveryWriteOfEveryOneArrives) {
  constexpr int kWriters = 2;
  constexpr int kValues = 50;
  const StoreFolder folder;
  std::array<pid_t, kWriters> children;
  for (int writer = 0; writer < kWriters; ++writer) {
    children[static_cast<std::size_t>(writer)] = fork();
    if (children[static_cast<std::size_t>(writer)] != 0) continue;
    auto registry = folder.Registry();
    bool done = true;
    for (int i = 0; i < kValues; ++i)
      done = SetText(registry, kMachine, "a", fmt::format("{}.{}", writer, i), "x") && done;
    _exit(done ? 0 : 1);
  }
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  auto registry = folder.Registry();
  for (int writer = 0; writer < kWriters; ++writer)
    for (int i = 0; i < kValues; ++i)
      EXPECT_EQ(GetText(registry, kMachine, "a", fmt::format("{}.{}", writer, i)), "x");
}

TEST(ManyProcesses, AListIsReadWholeWhileAnotherProcessRewritesIt) {
  const StoreFolder folder;
  auto registry = folder.Registry();
  DeviceFilters filters{RegistrySupport(registry)};
  Fill(filters, 0);
  filters.Sync();
  const pid_t child = fork();
  if (child == 0) {
    auto own = folder.Registry();
    DeviceFilters theirs{RegistrySupport(own)};
    for (int network = 1; network <= 20; ++network) {
      Fill(theirs, network);
      theirs.Sync();
    }
    _exit(0);
  }
  while (waitpid(child, nullptr, WNOHANG) == 0) {
    const Settings settings(registry);
    ASSERT_EQ(settings.DeviceFilters()->Count(), 200);
    const auto keys = settings.DeviceFilters()->Keys();
    const std::string network = keys.front().substr(0, keys.front().rfind('.'));
    for (const std::string& key : keys) ASSERT_EQ(key.substr(0, key.rfind('.')), network);
  }
}

/// Rewrites the list for ever, alternating between two contents, and tells of every beginning.
[[noreturn]] void Rewrite(const StoreFolder& folder, int pipe) {
  auto registry = folder.Registry();
  DeviceFilters filters{RegistrySupport(registry)};
  for (int network = 0;; network = 1 - network) {
    Fill(filters, network);
    if (write(pipe, "", 1) != 1) _exit(1);
    filters.Sync();
  }
}

TEST(ManyProcesses, AWriterKilledAtAnyMomentLeavesTheOldOrTheNewList) {
  const StoreFolder folder;
  auto registry = folder.Registry();
  DeviceFilters filters{RegistrySupport(registry)};
  Fill(filters, 0);
  filters.Sync();
  std::mt19937 random(9);
  int journals = 0;
  for (int round = 0; round < 200; ++round) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) Rewrite(folder, ends[1]);
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

    journals += std::filesystem::exists(folder.Machine().native() + "-journal") ? 1 : 0;
    filters.Refresh();
    const auto keys = filters.Keys();
    ASSERT_EQ(keys.size(), 200U);
    for (const std::string& key : keys) ASSERT_EQ(key.substr(0, 5), keys.front().substr(0, 5));
    ASSERT_EQ(RunSql(folder.Machine(), "PRAGMA integrity_check"), "ok");
  }
  RecordProperty("killed_with_a_journal_open", journals);
  EXPECT_GT(journals, 0) << "no kill came in the middle of a write";
}

}  // namespace
}  // namespace sentrel
