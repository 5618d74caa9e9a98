#include "desktop/export/print_job.h"

#include "common/atomic_file.h"
#include "desktop/export/print_dialog.h"
#include "desktop/export/progress_dialog.h"

namespace sentrel {

std::string PrintJob::Pdf(const QPageLayout& paper, const QPageRanges& range,
                          Progress& progress) const {
  HalfOfWork layingOut(progress, HalfOfWork::First);
  HalfOfWork painting(progress, HalfOfWork::Second);
  return PdfFile(*pagesFor_(paper, layingOut), range, labels_, painting);
}

/// A printer cannot be told to forget what it has been given, so only the layout can be cancelled.
void PrintJob::PrintOn(QPrinter& printer) const {
  const std::string filename = printer.outputFileName().toStdString();
  if (!filename.empty()) {
    ProgressDialog progress(owner_, "Exporting ...");
    WriteFile(filename, Pdf(printer.pageLayout(), printer.pageRanges(), progress));
    return;
  }
  const auto pages = LayOut(printer.pageLayout());
  ProgressDialog progress(owner_, "Printing ...", CancelButton::Hidden);
  PaintPages(*pages, printer.pageRanges(), printer, progress);
}

std::shared_ptr<const PrintablePages> PrintJob::LayOut(const QPageLayout& paper) const {
  ProgressDialog progress(owner_, "Laying out the pages ...");
  return pagesFor_(paper, progress);
}

bool AskAndPrint(const PrintJob& job, QPrinter& printer, QWidget* owner, const QString& dialogName,
                 const std::function<void(const std::string& failure)>& tell) {
  PrintDialog dialog(printer, owner, dialogName);
  while (dialog.exec() == QDialog::Accepted) {
    try {
      job.PrintOn(printer);
      return true;
    } catch (const Cancelled&) {
      return false;
    } catch (const std::exception& failure) {
      tell(failure.what());
    }
  }
  return false;
}

}  // namespace sentrel
