#pragma once

#include <QByteArray>
#include <QWidget>
#include <string>

#include "desktop/export/paper_pages.h"

namespace sentrel {

/// What a print or a PDF says about itself.
struct PrintJob {
  std::string title;
  std::string program;
  bool landscape = false;
  /// Empty takes the system's own.
  std::string printer;
};

/// The pages as a PDF file whose text can be selected. Throws Failure and Cancelled.
QByteArray PdfFile(Pages& pages, const PrintJob& job, Progress& progress);

enum class PrintOutcome { Done, GivenUp, NoPrinter };

/// Asks for the printer, unless `quiet`, and prints. Throws Failure and Cancelled.
PrintOutcome PrintOnPaper(Pages& pages, const PrintJob& job, QWidget* owner, bool quiet,
                          Progress& progress);

/// Shows the pages in a window with zoom and print; returns when it is closed.
void ShowPreview(Pages& pages, const PrintJob& job, QWidget* owner);

}  // namespace sentrel
