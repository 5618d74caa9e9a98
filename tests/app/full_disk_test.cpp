#include <sys/mount.h>

#include <QFile>
#include <fstream>

#include "program_fixture.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;

/// The program with all that it keeps on a disk of half a megabyte. Run by full_disk_test.sh.
struct DISABLED_SmallDisk : testing::Test {
  DISABLED_SmallDisk() {
    EXPECT_TRUE(program.Start());
    LogTo(log, program);
  }
  void SendTrap() {
    ++sent;
    SendText(port, "<" + std::string(1000, 'x') + ">");
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.Traps().Rows() == 1 + sent; }, 10'000));
  }
  /// Every entry in the log is whole. Returns their number.
  qsizetype Entries() const {
    QFile file(log);
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    const QByteArray text = file.readAll();
    const QByteArray entry = "<" + QByteArray(1000, 'x') + ">\r\n\r\n";
    EXPECT_EQ(text.count('<'), text.count(entry));
    EXPECT_TRUE(text.isEmpty() || text.endsWith(entry));
    return text.count(entry);
  }
  void FillDisk() const {
    std::ofstream filler(disk / "filler");
    while (filler << std::string(512, '.') << std::flush) {
    }
  }

  const fs::path disk = std::getenv("SMALL_DISK");
  const fs::path log = disk / "traps.log";
  const std::uint16_t port = test::FreePort();
  Program program{OptionsIn(disk, port)};
  int sent = 0;
};

TEST_F(DISABLED_SmallDisk, FullItCostsEntriesAndOptionsButNothingThatWasThere) {
  program.Options().SetOIDCacheSize(77);
  for (int i = 0; i < 10; ++i) SendTrap();
  EXPECT_EQ(Entries(), 10);
  FillDisk();
  for (int i = 0; i < 20; ++i) SendTrap();
  const qsizetype kept = Entries();
  EXPECT_LT(kept, 30);
  program.Options().SetOIDCacheSize(88);
  EXPECT_EQ(program.Options().OIDCacheSize(), 88) << "for this run";
  EXPECT_EQ(Stored(disk).settings.OIDCacheSize(), 77);

  fs::remove(disk / "filler");
  for (int i = 0; i < 10; ++i) SendTrap();
  EXPECT_EQ(Entries(), kept + 10);
  program.Options().SetOIDCacheSize(99);
  EXPECT_EQ(Stored(disk).settings.OIDCacheSize(), 99);
}

TEST_F(DISABLED_SmallDisk, TakenAwayItIsLoggedToAgainOnceItIsBack) {
  SendTrap();
  ASSERT_EQ(umount2(disk.c_str(), MNT_DETACH), 0);
  fs::remove(log);
  fs::permissions(disk, fs::perms(0500));
  for (int i = 0; i < 5; ++i) SendTrap();
  ASSERT_EQ(mount("none", disk.c_str(), "tmpfs", 0, "size=512k"), 0);
  for (int i = 0; i < 5; ++i) SendTrap();
  EXPECT_EQ(Entries(), 5);
  program.Options().SetOIDCacheSize(55);
  EXPECT_EQ(program.Options().OIDCacheSize(), 55);
}

}  // namespace
}  // namespace sentrel
