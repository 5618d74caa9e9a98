#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "program_fixture.h"

namespace sentrel {
namespace {

struct ProgramTest : ProgramFixture {
  /// Runs one of the field's own senders to its end, the program's events being handled meanwhile.
  int Send(const char* sender, const QStringList& version, const QStringList& rest) {
    QProcess process;
    QStringList arguments = version;
    arguments << QString::fromStdString(Peer()) << rest;
    process.start(sender, arguments);
    EXPECT_TRUE(QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 20'000));
    return process.exitCode();
  }
  /// A cell as a screen reader is told it.
  QString Cell(int row, int col) {
    auto* view = program.Window().findChild<QWidget*>("Table");
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(view);
    return table->tableInterface()->cellAt(row, col)->text(QAccessible::Name);
  }
};

const QStringList kV2 = {"-v2c", "-cpublic"};

TEST_F(ProgramTest, TrapsOfEveryKindBecomeRowsNewestFirst) {
  const QStringList linkDown = {"", "1.3.6.1.6.3.1.1.5.3", "1.3.6.1.2.1.2.2.1.1.7", "i", "7"};
  EXPECT_EQ(Send(SNMPTRAP, kV2, linkDown), 0);
  AwaitRows(2);
  EXPECT_EQ(Cell(1, 1), "127.0.0.1");
  EXPECT_EQ(Cell(1, 2), "public");
  EXPECT_TRUE(Cell(1, 4).contains("= 7"));

  EXPECT_EQ(Send(SNMPTRAP, {"-v1", "-cold"}, {"1.3.6.1.4.1.9", "192.0.2.1", "2", "0", ""}), 0);
  AwaitRows(3);
  EXPECT_EQ(Cell(1, 2), "old");
  EXPECT_FALSE(Cell(1, 3).isEmpty()) << "the enterprise";

  EXPECT_EQ(Send(SNMPINFORM, {"-v2c", "-cinform", "-r0"}, linkDown), 0) << "it is answered";
  AwaitRows(4);
  EXPECT_EQ(Cell(1, 2), "inform");
  EXPECT_EQ(Cell(3, 2), "public");
}

TEST_F(ProgramTest, ABlockedEventLoopCostsNoTrapAndNoAnswer) {
  QProcess process;
  process.start(SNMPINFORM, {"-v2c", "-cpublic", "-r0", QString::fromStdString(Peer()), "",
                             "1.3.6.1.6.3.1.1.5.1"});
  EXPECT_TRUE(process.waitForFinished(20'000)) << "no event is handled in here";
  EXPECT_EQ(process.exitCode(), 0);
  EXPECT_EQ(program.Traps().Rows(), 1);
  AwaitRows(2);
}

TEST_F(ProgramTest, TrapsUnderTheOpenSettingsDialogMeetTheOldFilters) {
  const QStringList coldStart = {"", "1.3.6.1.6.3.1.1.5.1"};
  QTimer::singleShot(0, &program.Window(), [&] {
    QWidget* dialog = QApplication::activeModalWidget();
    ASSERT_TRUE(dialog && dialog->objectName() == "SettingsForm");
    dialog->findChild<QCheckBox*>("checkCommunity")->click();
    EXPECT_EQ(Send(SNMPTRAP, {"-v2c", "-cprivate"}, coldStart), 0);
    AwaitRows(2);
    QTest::mouseClick(dialog->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
  });
  program.Window().findChild<QAction*>("Main:Settings")->trigger();
  EXPECT_EQ(Send(SNMPTRAP, {"-v2c", "-cprivate"}, coldStart), 0);
  EXPECT_EQ(Send(SNMPTRAP, kV2, coldStart), 0);
  AwaitRows(3);
  EXPECT_EQ(Cell(1, 2), "public");
  EXPECT_EQ(Cell(2, 2), "private");
}

TEST_F(ProgramTest, TheHelpKeyOpensAPageThatClosesWithTheWindow) {
  const auto helpWindow = []() -> QWidget* {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == "Help" && widget->isVisible()) return widget;
    }
    return nullptr;
  };
  QTest::keyClick(program.Window().findChild<QWidget*>("Table"), Qt::Key_F1);
  ASSERT_NE(helpWindow(), nullptr);
  EXPECT_EQ(helpWindow()->windowTitle(), "The window - Sentrel Help");
  program.Window().close();
  EXPECT_EQ(helpWindow(), nullptr);
}

TEST_F(ProgramTest, AboutTellsTheVersionOfTheProgramFile) {
  QString version;
  QTimer::singleShot(0, [&] {
    QWidget* box = QApplication::activeModalWidget();
    version = box->findChild<QLabel*>("VersionInfo")->text();
    box->close();
  });
  program.Window().findChild<QAction*>("Help:About")->trigger();
  const QStringList lines = version.split('\n');
  ASSERT_EQ(lines.size(), 3) << version.toStdString();
  const QString majorAndMinor = QString(SENTREL_VERSION).section('.', 0, 1);
  EXPECT_TRUE(lines[0].startsWith("Version " + majorAndMinor + " "));
  EXPECT_EQ(lines[1], "test_program Version " SENTREL_VERSION "  ");
  EXPECT_TRUE(lines[2].contains("MIT License"));
}

TEST_F(ProgramTest, ClosingTheWindowStopsTheListener) {
  EXPECT_TRUE(program.Listener().Listening());
  program.Window().close();
  EXPECT_FALSE(program.Listener().Listening());
}

}  // namespace
}  // namespace sentrel
