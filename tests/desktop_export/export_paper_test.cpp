#include <QPrintPreviewDialog>
#include <QPrinterInfo>
#include <QProcess>
#include <QTest>

#include "desktop/export/print.h"
#include "desktop/export/progress_dialog.h"
#include "desktop/export/table_pages.h"
#include "engine_fixture.h"

namespace sentrel {
namespace {

using testing::HasSubstr;

class ExportPaper : public EngineFixture {
 protected:
  /// The text of the PDF file, page by page, read by an independent tool.
  QStringList PdfPages(const QString& name) {
    QProcess tool;
    tool.start("pdftotext", {"-layout", folder_.filePath(name), "-"});
    EXPECT_TRUE(tool.waitForFinished());
    QStringList pages = QString::fromUtf8(tool.readAllStandardOutput()).split('\f');
    pages.removeLast();
    return pages;
  }
  void SavePdf(std::int32_t orientation = 1) {
    const auto engine = NewSilentEngine();
    engine->SetOrientation(orientation);
    EXPECT_TRUE(engine->ExportTable(table_, "PDF", ""));
  }
};

TEST_F(ExportPaper, EveryPageOfAPdfBearsTitleDateTitlesOfColumnsAndItsNumber) {
  for (int row = 1; row < 999; ++row) {
    table_.AddItem("05-Dec-26\t192.0.2.1\trow<" + std::to_string(row) + ">", 1);
  }
  SavePdf();
  const QStringList pages = PdfPages("Traps.pdf");
  ASSERT_GT(pages.size(), 5);
  for (int page = 0; page < pages.size(); ++page) {
    for (const QString& text :
         {QString("SNMP Traps"), QString("05-Dec-26 03:49 PM"), QString("Trap Details"),
          QString("Sentrel 9.2.47"), QString("Page %1 of %2").arg(page + 1).arg(pages.size())}) {
      EXPECT_TRUE(pages[page].contains(text)) << page << ": " << text.toStdString();
    }
  }
  const QString all = pages.join("");
  for (int row = 1; row < 999; ++row) EXPECT_EQ(all.count(QString("row<%1>").arg(row)), 1);
}

TEST_F(ExportPaper, ARowTallerThanAPageGoesOnAndLosesNoLine) {
  std::string tall;
  for (int line = 0; line < 200; ++line) tall += "line<" + std::to_string(line) + ">\r\n";
  table_.SetCell(1, 2, tall);
  table_.AddItem("after\tthe\trow", 2);
  SavePdf();
  const QStringList pages = PdfPages("Traps.pdf");
  EXPECT_GE(pages.size(), 3);
  const QString all = pages.join("");
  int last = -1;
  for (int line = 0; line < 200; ++line) {
    const auto at = all.indexOf(QString("line<%1>").arg(line));
    EXPECT_GT(at, last) << line;
    last = static_cast<int>(at);
  }
  EXPECT_EQ(all.count("Trap Details"), pages.size());
}

TEST_F(ExportPaper, ALongLineIsWrappedAndNoneOfItIsLost) {
  table_.SetCell(1, 2, std::string(60 * 1024, 'x'));
  SavePdf(2);
  int letters = 0;
  for (const QString& page : PdfPages("Traps.pdf")) letters += static_cast<int>(page.count('x'));
  EXPECT_EQ(letters, 60 * 1024);
}

TEST_F(ExportPaper, AnEmptyTableIsOnePage) {
  table_.SetRows(1);
  SavePdf();
  EXPECT_EQ(PdfPages("Traps.pdf").size(), 1);
}

TEST_F(ExportPaper, PreviewShowsThePages) {
  const auto engine = NewEngine();
  user_.Accept("ExportColumns");
  user_.When("PrintPreview", [](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "SNMP Traps - Print Preview");
    auto& preview = dynamic_cast<QPrintPreviewDialog&>(window);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_GT(preview.printer()->pageLayout().paintRectPixels(72).width(), 0);
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  EXPECT_TRUE(engine->ExportTable(table_, "PREVIEW", ""));
  EXPECT_EQ(engine->TargetFilename(), Path("Traps"));
}

TEST_F(ExportPaper, WithoutAPrinterThePagesCanBeSaved) {
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "there is a printer";
  user_.Accept("ExportColumns");
  user_.Escape("NoPrinter");
  EXPECT_FALSE(NewEngine()->ExportTable(table_, "PRINTER", ""));
  user_.Accept("ExportColumns");
  user_.Press("NoPrinter", "Save as PDF");
  user_.NameFile("printed");
  EXPECT_TRUE(NewEngine()->ExportTable(table_, "PRINTER", ""));
  EXPECT_TRUE(PdfPages("printed.pdf").join("").contains("192.0.2.1"));

  const auto engine = NewEngine();
  engine->SetQuiet(true);
  EXPECT_FALSE(engine->ExportTable(table_, "PRINTER", ""));
}

TEST_F(ExportPaper, LongWorkCanBeEndedWithACancelButton) {
  TableContent content;
  content.columns = {{"Column", Alignment::Left}};
  content.rows.assign(20000, {"cell"});
  TablePages pages(content);
  ProgressDialog progress(&owner_, "Exporting ...", std::chrono::milliseconds(0));
  user_.Press("ExportProgress", "Cancel");
  EXPECT_THROW(PdfFile(pages, {"t", "p", false, ""}, progress), Cancelled);
}

TEST_F(ExportPaper, ShortWorkShowsNothing) {
  ProgressDialog progress(&owner_, "Exporting ...");
  progress.Advance(0, 10);
  progress.Advance(5, 10);
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    EXPECT_NE(window->objectName(), "ExportProgress");
  }
}

}  // namespace
}  // namespace sentrel
