#include <sys/resource.h>

#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>
#include <csignal>

#include "common/failure.h"
#include "desktop/export/column_widths.h"
#include "desktop/export/page_view.h"
#include "desktop/export/pdf_file.h"
#include "desktop/export/progress_dialog.h"
#include "desktop/export/table_pages.h"
#include "exporter_fixture.h"

namespace sentrel {
namespace {

using testing::DoubleNear;
using testing::Pointwise;

class Untold : public Progress {
 public:
  void Advance(std::size_t, std::size_t) override {}
};

QPageLayout A4() {
  return {QPageSize(QPageSize::A4), QPageLayout::Portrait, {15, 15, 15, 15}};
}

TableContent OneColumn(std::size_t rows) {
  TableContent content;
  content.columns = {{"Column", Alignment::Left}};
  content.rows.assign(rows, {"cell"});
  return content;
}

int DarkPixels(QWidget& widget) {
  const QImage image = widget.grab().toImage();
  int dark = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
  }
  return dark;
}

class ExportPaper : public ExporterFixture {
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
  void FillTable() {
    for (int row = 1; row < 999; ++row) {
      table_.AddItem("05-Dec-26\t192.0.2.1\trow<" + std::to_string(row) + ">", 1);
    }
  }
  void SavePdf(std::int32_t orientation = 1) {
    const auto exporter = NewSilentExporter();
    exporter->SetOrientation(orientation);
    EXPECT_TRUE(exporter->ExportTable(table_, "PDF", ""));
  }

  Untold untold_;
};

TEST_F(ExportPaper, EveryPageOfAPdfBearsTitleDateTitlesOfColumnsAndItsNumber) {
  FillTable();
  table_.SetChoiceText("Filter: from:192.0.2.1");
  SavePdf();
  const QStringList pages = PdfPages("Traps.pdf");
  ASSERT_GT(pages.size(), 5);
  EXPECT_TRUE(pages[0].contains("Filter: from:192.0.2.1"));
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

TEST_F(ExportPaper, ALongLineIsWrappedAndNoneOfItIsLostAndAnEmptyTableIsOnePage) {
  table_.SetCell(1, 2, std::string(61'440, 'x'));
  SavePdf(2);
  EXPECT_EQ(PdfPages("Traps.pdf").join("").count('x'), 61'440);
  table_.SetRows(1);
  SavePdf();
  EXPECT_EQ(PdfPages("Traps.pdf").size(), 1);
}

TEST_F(ExportPaper, WidthsOfColumnsFollowTheirContent) {
  const std::vector<double> usual(19, 50);
  std::vector<double> withOneLong = usual;
  withOneLong.push_back(900);
  const auto need = [](const std::vector<double>& lines) { return NeedOf(30, 20, lines); };
  const struct {
    std::vector<ColumnNeed> needs;
    std::vector<double> widths;
  } cases[] = {
      {{need(usual), need({})}, {50, 150}},
      {{need({}), need(usual), need(withOneLong)}, {30, 50, 120}},
      {{need(withOneLong), need({190})}, {50, 150}},
      {{need({}), need({190}), need({170})}, {20, 90, 90}},
      {{need({0, 0}), need({400})}, {20, 180}},
      {{NeedOf(300, 300, {}), need(usual)}, {100, 100}},
  };
  for (const auto& [needs, widths] : cases) {
    EXPECT_THAT(ShareWidth(needs, 200), Pointwise(DoubleNear(0.01), widths));
  }
}

/// Chooses pages and a file in the toolkit's print dialog, which asks before it replaces one.
void PrintToFile(QWidget& dialog, const QString& file, int from, int to) {
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
  dialog.findChild<QRadioButton*>("printRange")->click();
  dialog.findChild<QSpinBox*>("from")->setValue(from);
  dialog.findChild<QSpinBox*>("to")->setValue(to);
  dialog.findChild<QLineEdit*>("filename")->setText(file);
  QTest::keyClick(&dialog, Qt::Key_Return);
}

TEST_F(ExportPaper, PrintToFileTakesTheRangeAndComesBackAsItWasWhenTheFileCannotBeWritten) {
  FillTable();
  user_.Accept("ExportColumns");
  const QString file = folder_.filePath("two.pdf");
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  user_.When("Print", [&](QWidget& dialog) {
    const rlimit small{1000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    PrintToFile(dialog, file, 2, 3);
  });
  user_.When("Print", [&](QWidget& dialog) {
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(messageBox_.text, "Cannot write the file " + Path("two.pdf") + ": File too large.");
    EXPECT_EQ(dialog.findChild<QLineEdit*>("filename")->text(), file);
    EXPECT_EQ(dialog.findChild<QSpinBox*>("from")->value(), 2);
    EXPECT_EQ(dialog.findChild<QSpinBox*>("to")->value(), 3);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  std::signal(SIGXFSZ, SIG_IGN);
  const auto exporter = NewExporter();
  EXPECT_TRUE(exporter->ExportTable(table_, "PRINTER", ""));
  EXPECT_EQ(exporter->TargetFilename(), Path("two.pdf"));
  const QStringList pages = PdfPages("two.pdf");
  ASSERT_EQ(pages.size(), 2);
  EXPECT_TRUE(pages[0].contains("Page 2 of "));
  EXPECT_TRUE(pages[1].contains("Page 3 of "));
}

TEST_F(ExportPaper, PreviewShowsThePagesAndPrintsThoseThatAreChosen) {
  FillTable();
  user_.Accept("ExportColumns");
  user_.When("PrintPreview", [this](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "SNMP Traps - Print Preview");
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    auto& pages = *window.findChild<PageView*>();
    EXPECT_GT(DarkPixels(pages), 1000);
    auto& page = *window.findChild<QSpinBox*>("Page");
    QTest::keyClick(&page, Qt::Key_Up);
    QTest::keyClick(&page, Qt::Key_Return);
    EXPECT_EQ(pages.CurrentPage(), 2);
    QTest::keyClick(&window, Qt::Key_P, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  user_.When("Print",
             [this](QWidget& dialog) { PrintToFile(dialog, folder_.filePath("one.pdf"), 1, 1); });
  EXPECT_TRUE(NewExporter()->ExportTable(table_, "PREVIEW", ""));
  EXPECT_EQ(PdfPages("one.pdf").size(), 1);
}

TEST_F(ExportPaper, PreviewLaysThePagesOutAnewForAnotherPaper) {
  FillTable();
  user_.Accept("ExportColumns");
  user_.When("PrintPreview", [](QWidget& window) {
    const QString count = window.findChild<QLabel*>("PageCount")->text();
    QTest::mouseClick(window.findChild<QToolButton*>("PageSetup"), Qt::LeftButton);
    EXPECT_NE(window.findChild<QLabel*>("PageCount")->text(), count);
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  user_.When("PageSetup", [](QWidget& dialog) {
    dialog.findChild<QRadioButton*>("landscape")->click();
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_TRUE(NewExporter()->ExportTable(table_, "PREVIEW", ""));
}

TEST_F(ExportPaper, ARangeWithoutAPageIsRefused) {
  const TableContent content = OneColumn(1);
  const TablePages pages(content, A4(), untold_);
  EXPECT_THROW(PdfFile(pages, QPageRanges::fromString("7-9"), {"t", "p"}, untold_), Failure);
}

TEST_F(ExportPaper, LongWorkCanBeEndedWithACancelButtonAndShortWorkShowsNothing) {
  const TableContent content = OneColumn(400'000);
  ProgressDialog silent(&owner_, "Exporting ...", CancelButton::Shown, std::chrono::hours(1));
  user_.Press("ExportProgress", "Cancel");
  EXPECT_NO_THROW(TablePages(content, A4(), silent));
  ProgressDialog progress(&owner_, "Exporting ...", CancelButton::Shown,
                          std::chrono::milliseconds(0));
  EXPECT_THROW(TablePages(content, A4(), progress), Cancelled);
}

}  // namespace
}  // namespace sentrel
