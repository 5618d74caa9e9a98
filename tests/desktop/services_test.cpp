#include "desktop/services/desktop_application.h"
#include "desktop/services/desktop_clipboard.h"
#include "desktop/services/desktop_files.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDateTime>
#include <QGuiApplication>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTemporaryFile>

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

}  // namespace
}  // namespace sentrel
