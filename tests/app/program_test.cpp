#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "program_fixture.h"

namespace sentrel {
namespace {

struct ProgramTest : ProgramFixture {
  int Send(const char* sender, const QStringList& version, const QStringList& rest) {
    return Run(sender, version + QStringList(Peer()) + rest);
  }
  /// A cell as a screen reader is told it.
  QString Cell(int row, int col) {
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&View());
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

TEST_F(ProgramTest, TrapsUnderTheOpenSettingsDialogMeetTheOldFilters) {
  const QStringList coldStart = {"", "1.3.6.1.6.3.1.1.5.1"};
  user.When("SettingsForm", [&](QWidget& dialog) {
    dialog.findChild<QCheckBox*>("checkCommunity")->click();
    EXPECT_EQ(Send(SNMPTRAP, {"-v2c", "-cprivate"}, coldStart), 0);
    AwaitRows(2);
    QTest::mouseClick(dialog.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
  });
  Choose("Main:Settings");
  EXPECT_EQ(Send(SNMPTRAP, {"-v2c", "-cprivate"}, coldStart), 0);
  EXPECT_EQ(Send(SNMPTRAP, kV2, coldStart), 0);
  AwaitRows(3);
  EXPECT_EQ(Cell(1, 2), "public");
  EXPECT_EQ(Cell(2, 2), "private");
}

TEST_F(ProgramTest, TheHelpPageAndTheListenerCloseWithTheWindow) {
  const auto helpWindow = []() -> QWidget* {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == "Help" && widget->isVisible()) return widget;
    }
    return nullptr;
  };
  QTest::keyClick(&View(), Qt::Key_F1);
  ASSERT_NE(helpWindow(), nullptr);
  EXPECT_EQ(helpWindow()->windowTitle(), "The window - Sentrel Help");
  EXPECT_TRUE(program.Listener().IsListening());
  program.Window().close();
  EXPECT_EQ(helpWindow(), nullptr);
  EXPECT_FALSE(program.Listener().IsListening());
}

TEST_F(ProgramTest, AboutTellsTheVersionOfTheProgramFile) {
  QString version;
  user.When("QDialog", [&](QWidget& box) {
    version = box.findChild<QLabel*>("VersionInfo")->text();
    box.close();
  });
  Choose("Help:About");
  const QStringList lines = version.split('\n');
  ASSERT_EQ(lines.size(), 3) << version.toStdString();
  const QString majorAndMinor = QString(SENTREL_VERSION).section('.', 0, 1);
  EXPECT_TRUE(lines[0].startsWith("Version " + majorAndMinor + " "));
  EXPECT_EQ(lines[1], "test_program Version " SENTREL_VERSION "  ");
  EXPECT_TRUE(lines[2].contains("MIT License"));
}

}  // namespace
}  // namespace sentrel
