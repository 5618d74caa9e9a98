#include <gmock/gmock.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <deque>

#include "desktop/qt_file_dialog.h"

namespace sentrel {
namespace {

/// A user who answers the dialogs that open, one after the other.
struct FileDialogTest : testing::Test {
  FileDialogTest() {
    QObject::connect(&user, &QTimer::timeout, [this] { Answer(); });
    user.start(0);
  }
  ~FileDialogTest() override { EXPECT_EQ(answers.size(), 0) << "a dialog did not open"; }

  void Answer() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (answers.empty() || !dialog || !dialog->isVisible()) return;
    const auto answer = answers.front();
    answers.pop_front();
    answer(*dialog);
  }
  void WillEnter(const QString& name) {
    answers.emplace_back([name](QWidget& dialog) {
      auto* box = dialog.findChild<QLineEdit*>("fileNameEdit");
      ASSERT_TRUE(box);
      box->selectAll();
      QTest::keyClicks(box, name);
      QTest::keyClick(box, Qt::Key_Return);
    });
  }
  void WillPress(Qt::Key key, const char* kindOfDialog) {
    answers.emplace_back([key, kindOfDialog](QWidget& dialog) {
      EXPECT_TRUE(dialog.inherits(kindOfDialog));
      QTest::keyClick(&dialog, key);
    });
  }
  QString MakeFile(const char* name, QFile::Permissions permissions) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QFile::WriteOnly));
    file.setPermissions(permissions);
    return file.fileName();
  }

  QWidget window;
  QtFileDialog files{window};
  QTemporaryDir folder;
  QTimer user;
  std::deque<std::function<void(QWidget&)>> answers;
};

TEST_F(FileDialogTest, AcceptsNewNamesAndOffersTheOldOne) {
  const QString offered = folder.filePath("traps.log");
  answers.emplace_back([](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Log");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_EQ(files.ChooseSaveFile({"Log", "All Files (*.*)|*.*", offered.toStdString()}),
            offered.toStdString());
  WillEnter(folder.filePath("other"));
  EXPECT_EQ(files.ChooseSaveFile({"Log", "All Files (*.*)|*.*", offered.toStdString()}),
            folder.filePath("other").toStdString())
      << "as typed, without an extension";
  WillPress(Qt::Key_Escape, "QFileDialog");
  EXPECT_EQ(files.ChooseSaveFile({"Log", "All Files (*.*)|*.*", ""}), std::nullopt);
}

TEST_F(FileDialogTest, AsksBeforeOverwritingWhereWanted) {
  const QString present = MakeFile("present", QFile::ReadOwner | QFile::WriteOwner);
  WillEnter(present);
  EXPECT_EQ(files.ChooseSaveFile({"Log", "All Files (*.*)|*.*", ""}), present.toStdString());
  WillEnter(present);
  WillPress(Qt::Key_Escape, "QMessageBox");
  WillPress(Qt::Key_Escape, "QFileDialog");
  EXPECT_EQ(files.ChooseSaveFile({"Save", "All Files (*.*)|*.*", "", true}), std::nullopt);
}

TEST_F(FileDialogTest, RefusesReadOnlyFilesWhereWanted) {
  const QString locked = MakeFile("locked", QFile::ReadOwner);
  WillEnter(locked);
  WillPress(Qt::Key_Return, "QMessageBox");
  WillEnter(folder.filePath("free"));
  EXPECT_EQ(files.ChooseSaveFile({"Save", "All Files (*.*)|*.*", "", false, true}),
            folder.filePath("free").toStdString());
}

TEST(NameFilters, KeepTheirCaptionsAndMatchNamesWithoutADot) {
  EXPECT_EQ(NameFilters("SNMP Trap (*.Trap)|*.Trap|All Files (*.*)|*.*"),
            QStringList({"SNMP Trap (*.Trap) (*.Trap)", "All Files (*.*) (*)"}));
  EXPECT_EQ(NameFilters("Pictures|*.png;*.svg|odd"), QStringList({"Pictures (*.png *.svg)"}));
}

}  // namespace
}  // namespace sentrel
