#include <gmock/gmock.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <deque>

#include "desktop/forms/qt_file_dialog.h"

namespace sentrel {
namespace {

/// A user who answers the dialogs that open, one after the other.
struct FileDialogTest : testing::Test {
  FileDialogTest() { WaitForDialog(); }
  ~FileDialogTest() override { EXPECT_EQ(answers.size(), 0) << "a dialog did not open"; }

  /// Looks at every turn of the event loop, also of one within an answer.
  void WaitForDialog() {
    QTimer::singleShot(0, &window, [this] {
      WaitForDialog();
      QWidget* dialog = QApplication::activeModalWidget();
      if (answers.empty() || !dialog) return;
      dialog->activateWindow();
      if (!dialog->isActiveWindow()) return;
      const auto answer = answers.front();
      answers.pop_front();
      answer(*dialog);
    });
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
  void MakeFile(const char* name, QFile::Permissions permissions) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QFile::WriteOnly));
    file.setPermissions(permissions);
  }
  std::string Path(const char* name) const { return folder.filePath(name).toStdString(); }
  SaveFileRequest Request() const { return {"Log", "All Files (*.*)|*.*", Path("traps.log")}; }

  QWidget window;
  QtFileDialog files{window};
  QTemporaryDir folder;
  std::deque<std::function<void(QWidget&)>> answers;
};

TEST_F(FileDialogTest, AcceptsNewNamesAndOffersTheOldOne) {
  answers.emplace_back([](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Log");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_EQ(files.ChooseSaveFile(Request()), Path("traps.log"));
  WillEnter("other");
  EXPECT_EQ(files.ChooseSaveFile(Request()), Path("other")) << "as typed, without an extension";
  WillPress(Qt::Key_Escape, "QFileDialog");
  EXPECT_EQ(files.ChooseSaveFile(Request()), std::nullopt);
}

TEST_F(FileDialogTest, AsksBeforeOverwritingWhereWanted) {
  MakeFile("present", QFile::ReadOwner | QFile::WriteOwner);
  SaveFileRequest request = Request();
  WillEnter("present");
  EXPECT_EQ(files.ChooseSaveFile(request), Path("present"));
  request.promptBeforeOverwrite = true;
  WillEnter("present");
  WillPress(Qt::Key_Escape, "QMessageBox");
  WillPress(Qt::Key_Escape, "QFileDialog");
  EXPECT_EQ(files.ChooseSaveFile(request), std::nullopt);
}

TEST_F(FileDialogTest, RefusesReadOnlyFilesWhereWanted) {
  MakeFile("locked", QFile::ReadOwner);
  SaveFileRequest request = Request();
  request.refuseReadOnly = true;
  WillEnter("locked");
  WillPress(Qt::Key_Return, "QMessageBox");
  WillEnter("free");
  EXPECT_EQ(files.ChooseSaveFile(request), Path("free"));
}

TEST(NameFilters, KeepTheirCaptionsAndMatchNamesWithoutADot) {
  EXPECT_EQ(NameFilters("SNMP Trap (*.Trap)|*.Trap|All Files (*.*)|*.*"),
            QStringList({"SNMP Trap (*.Trap) (*.Trap)", "All Files (*.*) (*)"}));
  EXPECT_EQ(NameFilters("Pictures|*.png;*.svg|odd"), QStringList({"Pictures (*.png *.svg)"}));
}

}  // namespace
}  // namespace sentrel
