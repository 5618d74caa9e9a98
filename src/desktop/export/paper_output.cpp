#include "desktop/export/paper_output.h"

#include <QLocale>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinterInfo>

#include "common/failure.h"
#include "common/text.h"
#include "desktop/export/pdf_file.h"
#include "desktop/export/preview_window.h"
#include "desktop/export/progress_dialog.h"

namespace sentrel {
namespace {

constexpr std::int32_t kLandscape = 2;
constexpr QMarginsF kMargins{15, 15, 15, 15};  // millimetres

QPageSize CommonPageSize() {
  const bool letter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  return QPageSize(letter ? QPageSize::Letter : QPageSize::A4);
}

QPageLayout::Orientation OrientationOf(const ExportSettings& settings) {
  return settings.orientation == kLandscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

PdfLabels LabelsOf(const ExportSettings& settings) {
  return {settings.title, settings.programName + " " + settings.programVersion};
}

}  // namespace

std::optional<bool> PaperOutput::CarryOut(const std::string& method) {
  const std::string upper = UpperCase(method);
  if (upper == "PDF") return SavePdf();
  if (upper == "PRINTER") return Print();
  if (upper == "PREVIEW") return Preview();
  return std::nullopt;
}

bool PaperOutput::SavePdf() {
  const QPageLayout paper(CommonPageSize(), OrientationOf(session_.settings), kMargins,
                          QPageLayout::Millimeter);
  return files_.Save({"PDF file", "pdf"}, PdfWriter(paper, {}));
}

/// The toolkit's dialog can also choose a PDF file. If that cannot be written, the dialog comes
/// back with everything as it was chosen.
bool PaperOutput::Print() {
  QPrinter& printer = Printer();
  if (session_.settings.quiet) {
    if (printer.printerName().isEmpty()) throw Failure("There is no printer on this system.");
    return PrintOn(printer);
  }
  QPrintDialog dialog(&printer, session_.Owner());
  dialog.setObjectName("Print");
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  while (dialog.exec() == QDialog::Accepted) {
    if (session_.Succeeds([&] { return PrintOn(printer); })) return true;
  }
  return false;
}

/// A printer cannot be told to forget what it has been given, so only the layout can be cancelled.
bool PaperOutput::PrintOn(QPrinter& printer) {
  const QPageLayout paper = printer.pageLayout();
  if (!printer.outputFileName().isEmpty()) {
    files_.SaveTo(printer.outputFileName(), PdfWriter(paper, printer.pageRanges()));
    return true;
  }
  const Pages pages = PagesFor(paper);
  ProgressDialog progress(session_.Owner(), "Printing ...", CancelButton::Hidden);
  PaintPages(*pages, printer.pageRanges(), printer, progress);
  return true;
}

bool PaperOutput::Preview() {
  QPrinter& printer = Printer();
  PreviewWindow window(session_.Owner(), QString::fromStdString(session_.settings.title));
  window.ShowPages(PagesFor(printer.pageLayout()));
  QObject::connect(&window, &PreviewWindow::PrintAsked, &window, [&] {
    session_.Guarded([&] { return Print(); });
    window.ShowPages(pages_);
  });
  QObject::connect(&window, &PreviewWindow::PageSetupAsked, &window, [&] {
    QPageSetupDialog dialog(&printer, &window);
    dialog.setObjectName("PageSetup");
    if (dialog.exec() != QDialog::Accepted) return;
    session_.Guarded([&] { return PagesFor(printer.pageLayout()) != nullptr; });
    window.ShowPages(pages_);
  });
  window.exec();
  return true;
}

QPrinter& PaperOutput::Printer() {
  if (printer_) return *printer_;
  const ExportSettings& settings = session_.settings;
  printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  if (!settings.defaultPrinter.empty()) {
    printer_->setPrinterName(QString::fromStdString(settings.defaultPrinter));
  }
  printer_->setDocName(QString::fromStdString(settings.title));
  printer_->setCreator(QString::fromStdString(LabelsOf(settings).program));
  if (printer_->printerName().isEmpty()) printer_->setPageSize(CommonPageSize());
  printer_->setPageOrientation(OrientationOf(settings));
  printer_->setPageMargins(kMargins, QPageLayout::Millimeter);
  return *printer_;
}

PaperOutput::Pages PaperOutput::PagesFor(const QPageLayout& paper, Progress& progress) {
  if (!pages_ || pages_->Paper() != paper) pages_ = makePages_(paper, progress);
  return pages_;
}

PaperOutput::Pages PaperOutput::PagesFor(const QPageLayout& paper) {
  ProgressDialog progress(session_.Owner(), "Laying out the pages ...");
  return PagesFor(paper, progress);
}

FileWriter PaperOutput::PdfWriter(const QPageLayout& paper, const QPageRanges& range) {
  return [this, paper, range](Progress& progress) {
    HalfOfWork layingOut(progress, HalfOfWork::First);
    HalfOfWork painting(progress, HalfOfWork::Second);
    return PdfFile(*PagesFor(paper, layingOut), range, LabelsOf(session_.settings), painting);
  };
}

}  // namespace sentrel
