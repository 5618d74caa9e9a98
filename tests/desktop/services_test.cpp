#include "desktop/services/desktop_application.h"
#include "desktop/services/desktop_clipboard.h"
#include "desktop/services/desktop_files.h"
#include "desktop/services/desktop_timer.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDateTime>
#include <QGuiApplication>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>

#include "common/failure.h"

namespace sentrel {
namespace {

TEST(DesktopClipboard, OffersTextAndHtmlAndClears) {
  DesktopClipboard clipboard;
  clipboard.SetText("a\tü\r\nb", "<table></table>");
  const QMimeData* content = QGuiApplication::clipboard()->mimeData();
  EXPECT_EQ(content->text(), "a\tü\r\nb");
  EXPECT_EQ(content->html(), "<table></table>");
  clipboard.Clear();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "");
}

TEST(DesktopFiles, KnowsWhenAFileWasMadeInLocalTime) {
  const QDateTime before = QDateTime::currentDateTime().addSecs(-2);
  QTemporaryFile file;
  ASSERT_TRUE(file.open());
  const LocalTime made = DesktopFiles().CreatedAt(file.fileName().toStdString());
  const QDateTime created(QDate(made.year, made.month, made.day),
                          QTime(made.hour, made.minute, made.second));
  EXPECT_GE(created, before);
  EXPECT_LE(created, QDateTime::currentDateTime());
  EXPECT_THROW(DesktopFiles().CreatedAt("/nowhere/at/all"), Failure);
}

TEST(DesktopFiles, DeletesWhatIsNotReadOnly) {
  QTemporaryDir folder;
  const QString path = folder.filePath("file");
  const std::string name = path.toStdString();
  DesktopFiles files;
  EXPECT_THROW(files.Delete(name), Failure);
  ASSERT_TRUE(QFile(path).open(QFile::WriteOnly));
  QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther);
  EXPECT_THROW(files.Delete(name), Failure);
  EXPECT_TRUE(files.Exists(name));
  QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
  files.Delete(name);
  EXPECT_FALSE(files.Exists(name));
}

TEST(DesktopApplication, TheLayoutLiesBesideTheProgramWhereThatCanBeWritten) {
  const DesktopApplication application("/elsewhere");
  EXPECT_EQ(application.LayoutFolder(), application.ProgramFolder());
}

struct DesktopTimerTest : testing::Test {
  DesktopTimerTest() {
    timer.Setup(kInterval, [this] {
      expiries.push_back(CoarseClock::now());
      timer.SetEnabled(!isOnce);
    });
  }
  bool ExpiredTimes(std::size_t count) {
    return QTest::qWaitFor([&] { return expiries.size() >= count; });
  }
  /// Handles events until this much time has passed.
  static void Pass(std::chrono::milliseconds time) {
    const auto end = CoarseClock::now() + time;
    EXPECT_TRUE(QTest::qWaitFor([&] { return CoarseClock::now() >= end; }));
  }

  static constexpr std::chrono::milliseconds kInterval{60};
  DesktopTimer timer;
  bool isOnce = false;
  std::vector<CoarseClock::time_point> expiries;
};

TEST_F(DesktopTimerTest, RepeatsFromItsStartAndEachTimeAWholeInterval) {
  auto last = CoarseClock::now();
  timer.SetEnabled(true);
  ASSERT_TRUE(ExpiredTimes(3));
  for (const auto expiry : expiries) EXPECT_GE(expiry - std::exchange(last, expiry), kInterval);
}

TEST_F(DesktopTimerTest, OffIsSilentAndOnAgainBeginsAWholeNewInterval) {
  timer.SetEnabled(true);
  Pass(kInterval / 2);
  timer.SetEnabled(false);
  const auto start = CoarseClock::now();
  timer.SetEnabled(true);
  ASSERT_TRUE(ExpiredTimes(1));
  EXPECT_GE(expiries.front() - start, kInterval) << "not at the end of the interval before";
  timer.SetEnabled(false);
  expiries.clear();
  Pass(kInterval * 2);
  EXPECT_TRUE(expiries.empty());
}

TEST_F(DesktopTimerTest, AnExpiryMayTurnItOff) {
  isOnce = true;
  timer.SetEnabled(true);
  Pass(kInterval * 3);
  EXPECT_EQ(expiries.size(), 1U);
}

}  // namespace
}  // namespace sentrel
