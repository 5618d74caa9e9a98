#pragma once

#include <QPrinter>
#include <memory>
#include <optional>
#include <string>

#include "desktop/export/export_session.h"
#include "desktop/export/file_output.h"
#include "desktop/export/printable_pages.h"

namespace sentrel {

/// All that shows an export as pages: printer, preview and PDF file take the same pages, and a PDF
/// file is written in the same way whether the export or the print dialog asked for it.
class PaperOutput {
 public:
  /// All but the function must outlive the output.
  PaperOutput(ExportSession& session, FileOutput& files, PageMaker makePages)
      : session_(session), files_(files), makePages_(std::move(makePages)) {}

  /// Whether it was done, for the methods "PRINTER", "PREVIEW" and "PDF" in any case; nothing for
  /// another method. Throws Failure and Cancelled.
  std::optional<bool> CarryOut(const std::string& method);

 private:
  using Pages = std::shared_ptr<const PrintablePages>;

  bool SavePdf();
  bool Print();
  bool PrintOn(QPrinter& printer);
  bool Preview();
  QPrinter& Printer();
  Pages PagesFor(const QPageLayout& paper, Progress& progress);
  Pages PagesFor(const QPageLayout& paper);
  FileWriter PdfWriter(const QPageLayout& paper, const QPageRanges& range);

  ExportSession& session_;
  FileOutput& files_;
  PageMaker makePages_;
  Pages pages_;  // those made last
  std::unique_ptr<QPrinter> printer_;
};

}  // namespace sentrel
