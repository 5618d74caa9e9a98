// SENTREL_LOCK_SECONDS says how long the store stays locked; two seconds without it.

#include <QElapsedTimer>
#include <algorithm>
#include <filesystem>

#include "program_fixture.h"
#include "store/database.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;

struct LockedStoreTest : ProgramFixture {
  fs::path File(const char* folder) const {
    return fs::path(state.filePath(folder).toStdString()) / kRegistryFile;
  }
};

TEST_F(LockedStoreTest, TheWindowGoesOnAndTrapsGoOnComing) {
  const int seconds = std::max(2, qEnvironmentVariableIntValue("SENTREL_LOCK_SECONDS"));
  Settings& options = program.Options();
  options.SetOIDCacheSize(1);
  fs::create_directories(File("user").parent_path());
  fs::copy_file(File("machine"), File("user"), fs::copy_options::overwrite_existing);
  const Patience none{std::chrono::milliseconds(0)};
  Database machineFile(File("machine"), none);
  Database userFile(File("user"), none);
  for (Database* file : {&machineFile, &userFile}) file->Execute("BEGIN EXCLUSIVE");

  QElapsedTimer lock;
  lock.start();
  qint64 longest = 0;
  qint64 waited = 0;
  int changes = 0;
  while (lock.elapsed() < qint64{seconds} * 1000) {
    SendText("x");
    QTest::qWait(20);
    QElapsedTimer change;
    change.start();
    options.SetOIDCacheSize(2 + ++changes);
    Choose("Edit:Raw");
    longest = std::max(longest, change.elapsed());
    waited += change.elapsed();
  }
  std::printf("%d changes, the longest of %lld ms, all of %lld ms in %d s\n", 2 * changes,
              static_cast<long long>(longest), static_cast<long long>(waited), seconds);
  EXPECT_GT(changes, 10);
  EXPECT_LT(longest, 2000);
  EXPECT_LT(waited, 2000 * (1 + seconds / 5));
  EXPECT_EQ(options.OIDCacheSize(), 2 + changes) << "for this run";
  AwaitRows(1 + std::min(changes, kMostTraps));

  for (Database* file : {&machineFile, &userFile}) file->Execute("ROLLBACK");
  options.SetOIDCacheSize(1'000'000);
  EXPECT_EQ(Stored(state.path().toStdString()).settings.OIDCacheSize(), 1'000'000);
}

}  // namespace
}  // namespace sentrel
