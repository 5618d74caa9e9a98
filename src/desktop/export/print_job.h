#pragma once

#include <QPrinter>
#include <functional>
#include <memory>

#include "desktop/export/pdf_file.h"
#include "desktop/export/printable_pages.h"

namespace sentrel {

/// The pages for a paper, laid out anew or as they were; never null. Throws Cancelled.
using PagesFor = std::function<std::shared_ptr<const PrintablePages>(const QPageLayout& paper,
                                                                     Progress& progress)>;

/// Puts pages on a printer or into a PDF file, which is written whole or not at all. Used on the
/// event loop; all members throw Failure and Cancelled.
class PrintJob {
 public:
  /// Progress shows above the owner, which may be null and must outlive the job.
  PrintJob(QWidget* owner, PagesFor pagesFor, PdfLabels labels)
      : owner_(owner), pagesFor_(std::move(pagesFor)), labels_(std::move(labels)) {}

  /// The bytes of a PDF file.
  std::string Pdf(const QPageLayout& paper, const QPageRanges& range, Progress& progress) const;
  /// Prints the pages of the printer's range, on its paper; on its PDF file if it has one.
  void PrintOn(QPrinter& printer) const;
  /// The pages, with progress while they are laid out.
  std::shared_ptr<const PrintablePages> LayOut(const QPageLayout& paper) const;

 private:
  QWidget* owner_;
  PagesFor pagesFor_;
  PdfLabels labels_;
};

/// Lets the user choose a printer or a PDF file, and prints. `tell` shows a failure, after which
/// the dialog comes back with everything as it was chosen. False if the user cancels.
bool AskAndPrint(const PrintJob& job, QPrinter& printer, QWidget* owner, const QString& dialogName,
                 const std::function<void(const std::string& failure)>& tell);

}  // namespace sentrel
