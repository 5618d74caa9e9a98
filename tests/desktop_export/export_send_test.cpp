#include <sys/stat.h>

#include <QDirIterator>
#include <QFile>
#include <QStandardPaths>

#include "exporter_fixture.h"

namespace sentrel {
namespace {

using testing::HasSubstr;

class ExportSend : public ExporterFixture {
 protected:
  ExportSend() {
    qputenv("HOME", folder_.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8());
    QFile file(folder_.filePath("Traps.html"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<p>One</p><p>Two &amp; <b>three</b></p>");
  }

  std::string Send(const std::string& target) {
    return NewExporter()->SendTo(Path("Traps.html"), target);
  }
};

TEST_F(ExportSend, AttachesTheFileToAMailOrPutsItsTextIntoIt) {
  InstallTool("xdg-mime", "mail.desktop");
  InstallTool("xdg-email");
  const std::pair<const char*, std::string> ways[] = {
      {"Mail Recipient.MapiMail", "--attach\n" + Path("Traps.html")},
      {"mailcontent", "--body\nOne\nTwo & three"},
  };
  for (const auto& [target, content] : ways) {
    EXPECT_EQ(Send(target), "True");
    EXPECT_EQ(WaitForTool("xdg-email").toStdString(), "--subject\nSNMP Traps\n" + content + "\n");
  }
}

TEST_F(ExportSend, CopiesIntoTheDocumentsFolderBesideWhatIsThere) {
  const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  EXPECT_EQ(Send("MyDocuments"), "True");
  EXPECT_EQ(Send("MyDocuments"), "True");
  EXPECT_TRUE(documents.exists("Traps.html"));
  EXPECT_TRUE(documents.exists("Traps (2).html"));
}

TEST_F(ExportSend, OpensTheFileInTheSystemsProgramOrInTheOneThatIsNamed) {
  InstallTool("xdg-mime", "browser.desktop");
  InstallTool("xdg-open");
  InstallTool("viewer");
  EXPECT_EQ(Send("Open"), "True");
  EXPECT_EQ(WaitForTool("xdg-open").trimmed().toStdString(), Path("Traps.html"));
  EXPECT_EQ(Send(Path("bin/viewer")), "True");
  EXPECT_EQ(WaitForTool("viewer").trimmed().toStdString(), Path("Traps.html"));
}

TEST_F(ExportSend, TellsWhereThereIsNoProgramForIt) {
  InstallTool("xdg-mime", "");
  InstallTool("xdg-email");
  InstallTool("xdg-open");
  EXPECT_EQ(Send("x.mapimail"), "False");
  EXPECT_EQ(messageBox_.text, "There is no mail program on this system.");
  EXPECT_EQ(Send("Open"), "False");
  EXPECT_THAT(messageBox_.text, HasSubstr("no program on this system that opens"));
  EXPECT_EQ(Send("/gone/program"), "False");
  EXPECT_THAT(messageBox_.text, HasSubstr("/gone/program cannot be started"));
  qputenv("PATH", folder_.filePath("nothing").toUtf8());
  EXPECT_EQ(Send("Open"), "False");
  EXPECT_THAT(messageBox_.text, HasSubstr("xdg-open"));
}

TEST_F(ExportSend, ExcelOpensPrivateReadOnlyWorkbooksThatAreGoneWithTheProgram) {
  InstallTool("xdg-mime", "sheets.desktop");
  InstallTool("xdg-open");
  qputenv("XDG_RUNTIME_DIR", folder_.path().toUtf8());
  QString folder;
  for (const char* name : {"/SNMPTraps.xlsx", "/SNMPTraps (2).xlsx"}) {
    const auto exporter = NewExporter("SNMPTraps");
    exporter->SetSkipFieldSelection(true);
    EXPECT_TRUE(exporter->ExportTable(table_, "Excel", ""));
    const QString opened = WaitForTool("xdg-open").trimmed();
    EXPECT_EQ(opened.toStdString(), exporter->TargetFilename());
    EXPECT_TRUE(opened.startsWith(folder_.path()) && opened.endsWith(name));
    struct stat file {};
    ASSERT_EQ(stat(qPrintable(opened), &file), 0);
    EXPECT_EQ(file.st_mode & 0777, 0400u);
    folder = QFileInfo(opened).path();
    ASSERT_EQ(stat(qPrintable(folder), &file), 0);
    EXPECT_EQ(file.st_mode & 0777, 0700u);
  }
  factory_.reset();
  EXPECT_FALSE(QFile::exists(folder));
}

TEST_F(ExportSend, WithoutASpreadsheetNoFileIsLeftBehind) {
  InstallTool("xdg-mime", "");
  InstallTool("xdg-open");
  qputenv("XDG_RUNTIME_DIR", folder_.path().toUtf8());
  EXPECT_FALSE(NewSilentExporter()->ExportTable(table_, "Excel", ""));
  EXPECT_THAT(messageBox_.text, HasSubstr("no program on this system that opens"));
  QDirIterator files(folder_.path(), {"*.xlsx"}, QDir::Files, QDirIterator::Subdirectories);
  EXPECT_FALSE(files.hasNext());
}

}  // namespace
}  // namespace sentrel
