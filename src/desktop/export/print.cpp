#include "desktop/export/print.h"

#include <QBuffer>
#include <QLocale>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include "common/failure.h"

namespace sentrel {
namespace {

constexpr int kPdfDpi = 600;
constexpr QMarginsF kMargins{15, 15, 15, 15};  // millimetres

class Untold : public Progress {
 public:
  void Advance(std::size_t, std::size_t) override {}
};

QPageSize CommonPageSize() {
  const bool letter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  return QPageSize(letter ? QPageSize::Letter : QPageSize::A4);
}

void SetUp(QPrinter& printer, const PrintJob& job) {
  if (!job.printer.empty()) printer.setPrinterName(QString::fromStdString(job.printer));
  printer.setDocName(QString::fromStdString(job.title));
  printer.setCreator(QString::fromStdString(job.program));
  if (printer.printerName().isEmpty()) printer.setPageSize(CommonPageSize());
  printer.setPageOrientation(job.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  printer.setPageMargins(kMargins, QPageLayout::Millimeter);
}

}  // namespace

QByteArray PdfFile(Pages& pages, const PrintJob& job, Progress& progress) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(QString::fromStdString(job.title));
  writer.setCreator(QString::fromStdString(job.program));
  writer.setResolution(kPdfDpi);
  writer.setPageLayout(QPageLayout(CommonPageSize(),
                                   job.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                                   kMargins, QPageLayout::Millimeter));
  PaintPages(pages, writer, progress);
  return bytes;
}

PrintOutcome PrintOnPaper(Pages& pages, const PrintJob& job, QWidget* owner, bool quiet,
                          Progress& progress) {
  if (QPrinterInfo::availablePrinterNames().isEmpty()) return PrintOutcome::NoPrinter;
  QPrinter printer(QPrinter::HighResolution);
  SetUp(printer, job);
  if (!quiet) {
    QPrintDialog dialog(&printer, owner);
    dialog.setObjectName("Print");
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted) return PrintOutcome::GivenUp;
  }
  PaintPages(pages, printer, progress, printer.fromPage(), printer.toPage());
  return PrintOutcome::Done;
}

void ShowPreview(Pages& pages, const PrintJob& job, QWidget* owner) {
  QPrinter printer(QPrinter::HighResolution);
  SetUp(printer, job);
  QPrintPreviewDialog dialog(&printer, owner);
  dialog.setObjectName("PrintPreview");
  dialog.setWindowTitle(QString::fromStdString(job.title + " - Print Preview"));
  dialog.resize(1000, 800);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* target) {
    Untold progress;
    Attempt([&] { PaintPages(pages, *target, progress); });
  });
  dialog.exec();
}

}  // namespace sentrel
