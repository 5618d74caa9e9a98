#include <sys/stat.h>

#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "exporter_fixture.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ExportFile : public ExporterFixture {
 protected:
  int file_ = 0;
};

constexpr const char* kWholeTable =
    "Trap Time,IP Address,Trap Details\r\n05-Dec-26,192.0.2.1,ifIndex=1\r\n";

TEST_F(ExportFile, AddsTheExtensionUnlessTheNameEndsInOneOfThatKind) {
  const struct {
    QString name;
    const char* method;
    QString file;
  } names[] = {{"Mine", "CDF", "Mine.csv"},
               {"traps-2026.11.23", "CDF", "traps-2026.11.23.csv"},
               {"MINE.CSV", "CDF", "MINE.CSV"},
               {"page.htm", "HTML", "page.htm"},
               {"book.csv", "XLS", "book.csv.xlsx"}};
  for (const auto& [name, method, file] : names) {
    user_.Accept("ExportColumns");
    user_.NameFile(name);
    const auto exporter = NewExporter();
    EXPECT_TRUE(exporter->ExportTable(table_, method, ""));
    EXPECT_EQ(exporter->TargetFilename(), Path(file));
    EXPECT_TRUE(QFile::exists(folder_.filePath(file))) << file.toStdString();
  }
}

TEST_F(ExportFile, SuggestsTheTargetOrItsNameInTheUsersFolderWhereItsOwnIsGone) {
  qputenv("HOME", folder_.path().toUtf8());
  qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8());
  const std::string target = "/gone/SNMPTraps";
  const auto save = [&] {
    const auto exporter = NewExporter();
    exporter->SetSkipFieldSelection(true);
    exporter->SetTargetFilename(target);
    user_.Accept("ExportFile");
    EXPECT_TRUE(exporter->ExportTable(table_, "CDF", ""));
    return exporter->TargetFilename();
  };
  EXPECT_EQ(save(), Path("SNMPTraps.csv"));
  QDir(folder_.path()).mkdir("Documents");
  EXPECT_EQ(save(), Path("Documents/SNMPTraps.csv"));
}

TEST_F(ExportFile, AFailedWriteComesBackToTheFileDialogWithEverythingAsItWasChosen) {
  QDir(folder_.path()).mkdir("sub");
  ASSERT_EQ(mkfifo(Path("sub/pipe.csv").c_str(), 0600), 0);
  user_.Accept("ExportColumns");
  user_.NameFile("sub/pipe");
  user_.Press("Replace", "Replace");
  user_.When("ExportFile", [this](QWidget& window) {
    EXPECT_EQ(messageBox_.text,
              "Cannot write the file " + Path("sub/pipe.csv") + ": it is not a file.");
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    EXPECT_EQ(dialog.directory().dirName(), "sub");
    EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "pipe.csv");
    QTest::keyClick(&window, Qt::Key_Return);
  });
  user_.Escape("Replace");
  user_.NameFile("traps");
  EXPECT_TRUE(NewExporter()->ExportTable(table_, "CDF", ""));
  EXPECT_EQ(Read("sub/traps.csv"), kWholeTable);
  EXPECT_EQ(log_.calls.size(), 1u);
}

TEST_F(ExportFile, RemembersTheColumnsTakesNoEmptyChoiceAndNothingThatArrivesMeanwhile) {
  const auto exported = [this] {
    user_.Accept("ExportFile");
    EXPECT_TRUE(NewExporter(std::to_string(++file_))->ExportTable(table_, "CDF", ""));
    return Read(QString("%1.csv").arg(file_));
  };
  user_.When("ExportColumns", [this](QWidget& dialog) {
    table_.AddItem("later\tx\ty", 1);
    auto* list = dialog.findChild<QListWidget*>("Columns");
    EXPECT_EQ(list->accessibleName(), "Columns to take");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Space);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_EQ(exported(), "Trap Time,Trap Details\r\n05-Dec-26,ifIndex=1\r\n");
  table_.RemoveItem(1);
  user_.Accept("ExportColumns");
  EXPECT_EQ(exported(), "Trap Time,Trap Details\r\n05-Dec-26,ifIndex=1\r\n");
  user_.When("ExportColumns", [](QWidget& dialog) {
    QTest::mouseClick(dialog.findChild<QPushButton*>("None"), Qt::LeftButton);
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    QTest::mouseClick(dialog.findChild<QPushButton*>("All"), Qt::LeftButton);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_EQ(exported(), kWholeTable);
}

TEST_F(ExportFile, AsksBeforeItReplacesAFileAndCanBeGivenUpAnywhere) {
  QFile old(folder_.filePath("Traps.csv"));
  ASSERT_TRUE(old.open(QIODevice::WriteOnly));
  old.write("old");
  old.close();

  user_.Escape("ExportColumns");
  EXPECT_FALSE(NewExporter()->ExportTable(table_, "CDF", ""));
  user_.Accept("ExportColumns");
  user_.Accept("ExportFile");
  user_.Escape("Replace");
  user_.Escape("ExportFile");
  EXPECT_FALSE(NewExporter()->ExportTable(table_, "CDF", ""));
  EXPECT_EQ(Read("Traps.csv"), "old");

  user_.Accept("ExportColumns");
  user_.NameFile("Traps");
  user_.Press("Replace", "Replace");
  EXPECT_TRUE(NewExporter()->ExportTable(table_, "CDF", ""));
  EXPECT_EQ(Read("Traps.csv"), kWholeTable);
  EXPECT_THAT(Files(), ElementsAre("Traps.csv"));
}

TEST_F(ExportFile, TellsWhatItCannotDoOnceUnlessQuiet) {
  QDir(folder_.path()).mkdir("Traps.csv");
  const std::pair<std::function<bool(ExportBackend&)>, const char*> kinds[] = {
      {[this](ExportBackend& e) { return e.ExportTable(table_, "CDF", ""); }, "it is a folder."},
      {[](ExportBackend& e) { return e.ExportRTF("", "PDF", ""); }, "formatted text"},
      {[](ExportBackend& e) { return e.ExportEMFFile("", "PDF", ""); }, "metafiles"},
      {[](ExportBackend& e) { return e.ExportChart({}, "PDF", ""); }, "charts"},
      {[](ExportBackend& e) { return e.ExportMap({}, "PDF"); }, "maps"},
      {[](ExportBackend& e) { return e.ExportText("x", "XLS", ""); }, "\"XLS\""},
      {[](ExportBackend& e) { return e.ExportPicture({}, "PNG", ""); }, "empty or damaged"},
      {[](ExportBackend& e) { return e.ExportTextFile("/gone", "TXT"); }, "/gone"},
      {[](ExportBackend& e) { return e.ExportImageFile("/gone", "PNG", ""); }, "/gone"},
  };
  for (const auto& [call, word] : kinds) {
    log_.calls.clear();
    const auto exporter = NewSilentExporter();
    EXPECT_FALSE(call(*exporter));
    EXPECT_THAT(messageBox_.text, HasSubstr(word));
    exporter->SetQuiet(true);
    EXPECT_FALSE(call(*exporter));
    EXPECT_EQ(log_.calls.size(), 1u);
  }
  EXPECT_TRUE(Files().isEmpty());
}

TEST_F(ExportFile, TakesTheColumnsOfTheListAndTheFileFormatWhereTheMethodDoesNotRule) {
  for (const bool selectMethod : {false, true}) {
    const auto exporter = NewSilentExporter();
    exporter->SetColumnList("IP Address, Trap Details");
    exporter->SetFileFormat("MHTML");
    exporter->SetSelectMethod(selectMethod);
    EXPECT_TRUE(exporter->ExportTable(table_, "CDF", ""));
  }
  EXPECT_THAT(Files(), ElementsAre("Traps.csv", "Traps.mhtml"));
  EXPECT_EQ(Read("Traps.csv"), "IP Address,Trap Details\r\n192.0.2.1,ifIndex=1\r\n");
}

TEST_F(ExportFile, WritesTextsAndPictures) {
  EXPECT_TRUE(NewSilentExporter("text")->ExportText("one\r\n<two>", "txt", ""));
  EXPECT_THAT(Read("text.txt").toStdString(), HasSubstr("one\r\n<two>"));

  const auto pictures = NewSilentExporter("picture");
  pictures->SetImageFormat("GIF");
  pictures->SetImageWidth(640);
  pictures->SetImageHeight(400);
  EXPECT_TRUE(pictures->ExportPicture({2, 1, {0xFFFF0000, 0xFF0000FF}}, "HTML", ""));
  const QImage image(folder_.filePath("picture.png"));
  EXPECT_EQ(image.size(), QSize(640, 320));
  EXPECT_EQ(image.pixel(0, 0), 0xFFFF0000);
  EXPECT_EQ(image.pixel(639, 319), 0xFF0000FF);
}

TEST_F(ExportFile, CarriesOutEveryMethodThatItOffers) {
  InstallTool("xdg-mime", "sheets.desktop");
  InstallTool("xdg-open");
  const auto exporter = NewExporter();
  const Picture picture{1, 1, {0}};
  const std::function<bool(ExportBackend&, const std::string&)> kinds[] = {
      [&](ExportBackend& e, const std::string& m) { return e.ExportTable(table_, m, ""); },
      [&](ExportBackend& e, const std::string& m) { return e.ExportText("x", m, ""); },
      [&](ExportBackend& e, const std::string& m) { return e.ExportPicture(picture, m, ""); }};
  for (const int kind : {0, 1, 2}) {
    EXPECT_GE(exporter->ExportMethods(kind).size(), 3u);
    for (const ExportChoice& choice : exporter->ExportMethods(kind)) {
      EXPECT_TRUE(kinds[kind](*NewSilentExporter(), choice.key)) << choice.key;
      EXPECT_EQ(exporter->MethodName(choice.key), choice.caption);
      EXPECT_NE(choice.caption, "");
    }
  }
  for (const int kind : {-1, 3}) EXPECT_TRUE(exporter->ExportMethods(kind).empty());
  EXPECT_EQ(exporter->MethodName("nothing"), "");
}

}  // namespace
}  // namespace sentrel
