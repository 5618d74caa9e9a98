#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "common/failure.h"
#include "desktop/help/about_window.h"
#include "desktop/help/tip_window.h"
#include "desktop/window/icons.h"
#include "desktop/window/trap_window.h"
#include "dialogs.h"
#include "fakes/fake_console.h"
#include "fakes/fake_registry.h"
#include "shell/tip_of_the_day.h"

namespace sentrel {
namespace {

std::string TextOf(const QWidget& dialog, const char* label) {
  return dialog.findChild<QLabel*>(label)->text().toStdString();
}

TEST(AboutBoxDialog, ShowsWhatItIsGiven) {
  Table table;
  ToolBars tools;
  StatusBar status;
  TrapWindow owner(table, tools, status);
  const auto about = AboutWindowFactory(owner).Create();
  about->SetProgramName("SNMP Sentrel");
  about->SetPackageName("Tools & more");
  about->SetSubTitle("<b>Receive</b>");
  about->SetVersionInfo("Version 9.2\r\nSentrel Version 9.2.0.47  \r\nFree.\r\n");
  about->SetProgIcon({kProgramIcon});
  User user;
  user.When("QDialog", [](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "About SNMP Sentrel");
    EXPECT_EQ(TextOf(dialog, "ProgramName"), "SNMP Sentrel");
    EXPECT_EQ(TextOf(dialog, "SubTitle"), "<b>Receive</b>");
    EXPECT_EQ(TextOf(dialog, "PackageName"), "Part of the Tools & more");
    EXPECT_EQ(TextOf(dialog, "VersionInfo"), "Version 9.2\nSentrel Version 9.2.0.47  \nFree.");
    EXPECT_FALSE(dialog.findChild<QLabel*>("ProgIcon")->pixmap().isNull());
  });
  user.Escape("QDialog");
  about->Show();
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
  /// Shows the tips of a set to a user, who closes them in the end.
  void Use(const std::function<void(QWidget& window)>& steps) {
    user.When("QDialog", steps);
    user.Escape("QDialog");
    dialog->Show("Three");
  }

  QTemporaryDir folder;
  QWidget owner;
  FakeRegistry registry;
  RegistrySupport support{registry};
  FakeClock clock;
  TipWindowFactory factory{owner, support, clock};
  std::unique_ptr<TipDialog> dialog = factory.Create();
  User user;
};

TEST_F(TipDialogTest, TurnsPagesInBothDirections) {
  clock.now = {1970, 1, 1, 12, 0, 0};
  std::vector<std::string> titles;
  Use([&](QWidget& window) {
    EXPECT_EQ(TextOf(window, "Text"), "1 < 2");
    for (const char* button : {"Next", "Next", "Next", "Previous"}) {
      Press(window, button);
      titles.push_back(TextOf(window, "Title"));
    }
  });
  EXPECT_THAT(titles, testing::ElementsAre("Second", "Third", "First", "Third"));
  EXPECT_EQ(registry.changes, 0) << "reading writes nothing";
}

TEST_F(TipDialogTest, OpensAtAnotherTipEachDay) {
  std::vector<std::string> titles;
  for (const int day : {1, 2, 3, 4}) {
    clock.now = {1970, 1, day, 12, 0, 0};
    Use([&](QWidget& window) { titles.push_back(TextOf(window, "Title")); });
  }
  EXPECT_THAT(titles, testing::ElementsAre("First", "Second", "Third", "First"));
}

TEST_F(TipDialogTest, TheCheckBoxIsTheStoredChoice) {
  for (const bool wanted : {false, true}) {
    Use([&](QWidget& window) {
      auto* box = window.findChild<QCheckBox*>("ShowAtStartup");
      EXPECT_EQ(box->isChecked(), !wanted);
      QTest::keyClick(box, Qt::Key_Space);
      EXPECT_EQ(TipsAtStart(support), wanted) << "at once";
    });
    EXPECT_EQ(TipsAtStart(support), wanted);
  }
}

TEST_F(TipDialogTest, FailsWhereThereAreNoTips) {
  for (const char* set : {"Empty", "Gone", "../Three"})
    EXPECT_THROW(dialog->Show(set), Failure) << set;
}

}  // namespace
}  // namespace sentrel
