#include "desktop/forms/qt_file_dialog.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "dialogs.h"

namespace sentrel {
namespace {

struct FileDialogTest : testing::Test {
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
  User user;
};

TEST_F(FileDialogTest, AcceptsNewNamesAndOffersTheOldOne) {
  user.When("QFileDialog", [](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Log");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_EQ(files.ChooseSaveFile(Request()), Path("traps.log"));
  user.NameFile("other");
  EXPECT_EQ(files.ChooseSaveFile(Request()), Path("other")) << "as typed, without an extension";
  user.Escape("QFileDialog");
  EXPECT_EQ(files.ChooseSaveFile(Request()), std::nullopt);
}

TEST_F(FileDialogTest, AsksBeforeOverwritingWhereWanted) {
  MakeFile("present", QFile::ReadOwner | QFile::WriteOwner);
  SaveFileRequest request = Request();
  user.NameFile("present");
  EXPECT_EQ(files.ChooseSaveFile(request), Path("present"));
  request.promptBeforeOverwrite = true;
  user.NameFile("present");
  user.Escape("QMessageBox");
  user.Escape("QFileDialog");
  EXPECT_EQ(files.ChooseSaveFile(request), std::nullopt);
}

TEST_F(FileDialogTest, RefusesReadOnlyFilesWhereWanted) {
  MakeFile("locked", QFile::ReadOwner);
  SaveFileRequest request = Request();
  request.refuseReadOnly = true;
  user.NameFile("locked");
  user.Accept("QMessageBox");
  user.NameFile("free");
  EXPECT_EQ(files.ChooseSaveFile(request), Path("free"));
}

TEST(NameFilters, KeepTheirCaptionsAndMatchNamesWithoutADot) {
  EXPECT_EQ(NameFilters("SNMP Trap (*.Trap)|*.Trap|All Files (*.*)|*.*"),
            QStringList({"SNMP Trap (*.Trap) (*.Trap)", "All Files (*.*) (*)"}));
  EXPECT_EQ(NameFilters("Pictures|*.png;*.svg|odd"), QStringList({"Pictures (*.png *.svg)"}));
}

}  // namespace
}  // namespace sentrel
