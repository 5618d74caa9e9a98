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
    qputenv("XDG_RUNTIME_DIR", folder_.path().toUtf8());
    QFile file(folder_.filePath("Traps.html"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<p>One</p><p>Two &amp; <b>three</b></p>");
  }

  std::string Send(const std::string& target) {
    return NewExporter()->SendTo(Path("Traps.html"), target);
  }
};

TEST_F(ExportSend, HandsTheFileOrItsTextToTheProgramOfTheTarget) {
  InstallTool("xdg-mime", "program.desktop");
  const std::string file = Path("Traps.html");
  const struct {
    std::string target;
    const char* tool;
    std::string arguments;
  } ways[] = {
      {"Mail Recipient.MapiMail", "xdg-email", "--subject\nSNMP Traps\n--attach\n" + file},
      {"mailcontent", "xdg-email", "--subject\nSNMP Traps\n--body\nOne\nTwo & three"},
      {"Open", "xdg-open", file},
      {Path("bin/viewer"), "viewer", file},
  };
  for (const auto& [target, tool, arguments] : ways) {
    InstallTool(tool);
    EXPECT_EQ(Send(target), "True");
    EXPECT_EQ(WaitForTool(tool).toStdString(), arguments + "\n");
  }
}

TEST_F(ExportSend, CopiesIntoTheDocumentsFolderBesideWhatIsThere) {
  const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  EXPECT_EQ(Send("MyDocuments"), "True");
  EXPECT_EQ(Send("MyDocuments"), "True");
  EXPECT_TRUE(documents.exists("Traps.html"));
  EXPECT_TRUE(documents.exists("Traps (2).html"));
}

TEST_F(ExportSend, TellsWhereThereIsNoProgramForIt) {
  for (const char* tool : {"xdg-mime", "xdg-email", "xdg-open"}) InstallTool(tool);
  const std::pair<const char*, const char*> targets[] = {
      {"x.mapimail", "There is no mail program on this system."},
      {"Open", "no program on this system that opens"},
      {"/gone/program", "/gone/program cannot be started"}};
  for (const auto& [target, message] : targets) {
    EXPECT_EQ(Send(target), "False");
    EXPECT_THAT(messageBox_.text, HasSubstr(message));
  }
  NewSilentExporter()->ExportTable(table_, "Excel", "");
  EXPECT_THAT(messageBox_.text, HasSubstr(".xlsx"));
  QDirIterator files(folder_.path(), {"*.xlsx"}, QDir::Files, QDirIterator::Subdirectories);
  EXPECT_FALSE(files.hasNext()) << "nothing is left behind";
  qputenv("PATH", folder_.filePath("nothing").toUtf8());
  EXPECT_EQ(Send("Open"), "False");
  EXPECT_THAT(messageBox_.text, HasSubstr("xdg-open"));
}

TEST_F(ExportSend, ExcelOpensPrivateReadOnlyWorkbooksThatAreGoneWithTheProgram) {
  InstallTool("xdg-mime", "sheets.desktop");
  InstallTool("xdg-open");
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

}  // namespace
}  // namespace sentrel
