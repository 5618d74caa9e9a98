#include "desktop/forms/file_chooser.h"

#include <gmock/gmock.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <array>

#include "desktop/export/save_as_dialog.h"
#include "desktop/forms/toolkit_dialogs.h"
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
  FileChooser files{window};
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

TEST_F(FileDialogTest, RefusesWhereNothingCanBeWrittenAndSaysWhy) {
  MakeFile("locked", QFile::ReadOwner);
  SaveFileRequest request = Request();
  request.roomFor = 1;
  const std::pair<std::string, const char*> refused[] = {
      {Path("locked"), "it is write-protected"}, {Path("missing/x"), "there is no such folder"},
      {Path("locked/x"), "Not a directory"},     {"/proc/x", ""},
      {"/dev/full", "it is not a file"},
  };
  for (const auto& [name, reason] : refused) {
    user.NameFile(QString::fromStdString(name));
    user.When("QMessageBox", [reason = reason](QWidget& box) {
      EXPECT_THAT(
          qobject_cast<QMessageBox*>(&box)->text().toStdString(),
          testing::AllOf(testing::StartsWith("Cannot write the file "), testing::HasSubstr(reason),
                         testing::EndsWith(".\nPlease choose another file name.")));
      QTest::keyClick(&box, Qt::Key_Return);
    });
  }
  user.NameFile(folder.filePath("free"));
  EXPECT_EQ(files.ChooseSaveFile(request), Path("free"));
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System),
            QStringList("locked"))
      << "to find out leaves nothing behind";
}

/// Any file of the folder may be one whose reading never ends.
TEST_F(FileDialogTest, NoDialogOpensTheFilesThatItShows) {
  MakeFile("notes.odd", QFile::ReadOwner | QFile::WriteOwner);
  const QString notes = folder.filePath("notes.odd");
  const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  ASSERT_GE(inotify_add_watch(watch, qPrintable(notes), IN_OPEN), 0);
  const ToolkitDialogs harmless;
  const std::function<void()> dialogs[] = {
      [&] {
        files.ChooseSaveFile({"Log", "All Files (*.*)|*.*", notes.toStdString()});
      },
      [&] {
        SaveAs(&window, notes, {"Odd", "odd"}, [](const QString&) { return true; });
      },
      [&] { QFileDialog::getSaveFileName(&window, "The toolkit's own", folder.path()); },
  };
  for (const auto& open : dialogs) {
    user.When("QFileDialog", [&](QWidget& dialog) {
      const auto& shown = *dialog.findChild<QFileSystemModel*>();
      EXPECT_TRUE(QTest::qWaitFor([&] { return !shown.type(shown.index(notes)).isEmpty(); }));
      EXPECT_FALSE(shown.fileIcon(shown.index(notes)).isNull());
      QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    open();
  }
  std::array<char, 4096> opened;
  EXPECT_EQ(read(watch, opened.data(), opened.size()), -1);
  close(watch);
}

TEST(NameFilters, KeepTheirCaptionsAndMatchNamesWithoutADot) {
  EXPECT_EQ(NameFilters("SNMP Trap (*.Trap)|*.Trap|All Files (*.*)|*.*"),
            QStringList({"SNMP Trap (*.Trap) (*.Trap)", "All Files (*.*) (*)"}));
  EXPECT_EQ(NameFilters("Pictures|*.png;*.svg|odd"), QStringList({"Pictures (*.png *.svg)"}));
}

}  // namespace
}  // namespace sentrel
