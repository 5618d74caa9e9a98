#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "common/failure.h"
#include "desktop/help/qt_about_dialog.h"
#include "desktop/help/qt_tip_dialog.h"
#include "desktop/window/icons.h"
#include "desktop/window/qt_main_window.h"
#include "fakes/fake_console.h"
#include "fakes/fake_registry.h"
#include "shell/tip_of_the_day.h"

namespace sentrel {
namespace {

/// Does the steps once a modal dialog is open, then closes it.
void WhenOpen(std::function<void(QWidget& dialog)> steps) {
  QTimer::singleShot(0, QApplication::instance(), [steps = std::move(steps)] {
    QWidget* dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    steps(*dialog);
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
}

std::string TextOf(const QWidget& dialog, const char* label) {
  return dialog.findChild<QLabel*>(label)->text().toStdString();
}

TEST(AboutBoxDialog, ShowsWhatItIsGiven) {
  Table table;
  ToolBars tools;
  StatusBar status;
  QtMainWindow owner(table, tools, status);
  const auto about = QtAboutDialogFactory(owner).Create();
  about->SetProgramName("SNMP Sentrel");
  about->SetPackageName("Tools & more");
  about->SetSubTitle("<b>Receive</b>");
  about->SetVersionInfo("Version 9.2\r\nSentrel Version 9.2.0.47  \r\nFree.\r\n");
  about->SetProgIcon({kProgramIcon});
  bool shown = false;
  WhenOpen([&](QWidget& dialog) {
    shown = true;
    EXPECT_EQ(dialog.windowTitle(), "About SNMP Sentrel");
    EXPECT_EQ(TextOf(dialog, "ProgramName"), "SNMP Sentrel");
    EXPECT_EQ(TextOf(dialog, "SubTitle"), "<b>Receive</b>");
    EXPECT_EQ(TextOf(dialog, "PackageName"), "Part of the Tools & more");
    EXPECT_EQ(TextOf(dialog, "VersionInfo"), "Version 9.2\nSentrel Version 9.2.0.47  \nFree.");
    EXPECT_FALSE(dialog.findChild<QLabel*>("ProgIcon")->pixmap().isNull());
  });
  about->Show();
  EXPECT_TRUE(shown);
}

struct TipDialogTest : testing::Test {
  TipDialogTest() {
    QDir(folder.path()).mkdir("tips");
    Write("Three", "First\n1 < 2\n%\nSecond\nTwo.\n%\nThird\nThree.\n");
    Write("Empty", "# nothing\n");
    dialog->SetProgramName("Sentrel");
    dialog->SetPath(folder.path().toStdString());
  }
  void Write(const char* set, const char* text) {
    QFile file(folder.filePath(QString("tips/%1.txt").arg(set)));
    EXPECT_TRUE(file.open(QFile::WriteOnly));
    file.write(text);
  }
  static void Press(QWidget& window, const char* button) {
    QTest::mouseClick(window.findChild<QPushButton*>(button), Qt::LeftButton);
  }

  QTemporaryDir folder;
  QWidget owner;
  FakeRegistry registry;
  RegistrySupport support{registry};
  FakeClock clock;
  QtTipDialogFactory factory{owner, support, clock};
  std::unique_ptr<TipDialog> dialog = factory.Create();
};

TEST_F(TipDialogTest, TurnsPagesInBothDirections) {
  clock.now = {1970, 1, 1, 12, 0, 0};
  std::vector<std::string> titles;
  WhenOpen([&](QWidget& window) {
    EXPECT_EQ(TextOf(window, "Text"), "1 < 2");
    for (const char* button : {"Next", "Next", "Next", "Previous"}) {
      Press(window, button);
      titles.push_back(TextOf(window, "Title"));
    }
  });
  dialog->Show("Three");
  EXPECT_THAT(titles, testing::ElementsAre("Second", "Third", "First", "Third"));
  EXPECT_EQ(registry.changes, 0) << "reading writes nothing";
}

TEST_F(TipDialogTest, OpensAtAnotherTipEachDay) {
  std::vector<std::string> titles;
  for (const int day : {1, 2, 3, 4}) {
    clock.now = {1970, 1, day, 12, 0, 0};
    WhenOpen([&](QWidget& window) { titles.push_back(TextOf(window, "Title")); });
    dialog->Show("Three");
  }
  EXPECT_THAT(titles, testing::ElementsAre("First", "Second", "Third", "First"));
}

TEST_F(TipDialogTest, TheCheckBoxIsTheStoredChoice) {
  for (const bool wanted : {false, true}) {
    WhenOpen([&](QWidget& window) {
      auto* box = window.findChild<QCheckBox*>("ShowAtStartup");
      EXPECT_EQ(box->isChecked(), !wanted);
      QTest::keyClick(box, Qt::Key_Space);
      EXPECT_EQ(TipsAtStart(support), wanted) << "at once";
    });
    dialog->Show("Three");
    EXPECT_EQ(TipsAtStart(support), wanted);
  }
}

TEST_F(TipDialogTest, FailsWhereThereAreNoTips) {
  for (const char* set : {"Empty", "Gone", "../Three"})
    EXPECT_THROW(dialog->Show(set), Failure) << set;
}

}  // namespace
}  // namespace sentrel
