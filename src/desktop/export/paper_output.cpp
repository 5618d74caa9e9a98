#include "desktop/export/paper_output.h"

#include <QLocale>
#include <QPageSetupDialog>
#include <QPrinterInfo>

#include "common/failure.h"
#include "common/text.h"
#include "desktop/export/preview_window.h"

namespace sentrel {
namespace {

constexpr std::int32_t kLandscape = 2;

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
  const QPageLayout paper(CommonPageSize(), OrientationOf(session_.settings), kPaperMargins,
                          QPageLayout::Millimeter);
  return files_.Save({"PDF file", "pdf"},
                     [this, paper](Progress& progress) { return Job().Pdf(paper, {}, progress); });
}

bool PaperOutput::Print() {
  QPrinter& printer = Printer();
  if (session_.settings.quiet) {
    if (printer.printerName().isEmpty()) throw Failure("There is no printer on this system.");
    Job().PrintOn(printer);
    return true;
  }
  const auto tell = [this](const std::string& failure) { session_.Tell(failure); };
  if (!AskAndPrint(Job(), printer, session_.Owner(), "Print", tell)) return false;
  const std::string filename = printer.outputFileName().toStdString();
  if (!filename.empty()) session_.settings.targetFilename = filename;
  return true;
}

bool PaperOutput::Preview() {
  QPrinter& printer = Printer();
  PreviewWindow window(session_.Owner(), QString::fromStdString(session_.settings.title));
  window.ShowPages(Job().LayOut(printer.pageLayout()));
  QObject::connect(&window, &PreviewWindow::PrintAsked, &window, [&] {
    session_.Guarded([&] { return Print(); });
    window.ShowPages(pages_);
  });
  QObject::connect(&window, &PreviewWindow::PageSetupAsked, &window, [&] {
    QPageSetupDialog dialog(&printer, &window);
    dialog.setObjectName("PageSetup");
    if (dialog.exec() != QDialog::Accepted) return;
    session_.Guarded([&] { return Job().LayOut(printer.pageLayout()) != nullptr; });
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
  printer_->setPageMargins(kPaperMargins, QPageLayout::Millimeter);
  return *printer_;
}

PrintJob PaperOutput::Job() {
  const auto pagesFor = [this](const QPageLayout& paper, Progress& progress) {
    if (!pages_ || pages_->Paper() != paper) pages_ = makePages_(paper, progress);
    return pages_;
  };
  return {session_.Owner(), pagesFor, LabelsOf(session_.settings)};
}

}  // namespace sentrel
