#pragma once

#include <QPrinter>
#include <memory>
#include <optional>
#include <string>

#include "desktop/export/export_session.h"
#include "desktop/export/file_output.h"
#include "desktop/export/print_job.h"

namespace sentrel {

/// Everything that shows an export as pages. Printer, preview and PDF file use the same pages, and
/// a PDF file is written in the same way whether an export or the print dialog asks for it. Used on
/// the event loop.
class PaperOutput {
 public:
  /// Session and files must outlive the output.
  PaperOutput(ExportSession& session, FileOutput& files, PageMaker makePages)
      : session_(session), files_(files), makePages_(std::move(makePages)) {}

  /// Carries out "PRINTER", "PREVIEW" or "PDF", in any case of letters, and returns whether it was
  /// done; nothing for any other method. Throws Failure and Cancelled.
  std::optional<bool> CarryOut(const std::string& method);

 private:
  bool SavePdf();
  bool Print();
  bool Preview();
  QPrinter& Printer();
  PrintJob Job();

  ExportSession& session_;
  FileOutput& files_;
  PageMaker makePages_;
  std::shared_ptr<const PrintablePages> pages_;  // the last that were made
  std::unique_ptr<QPrinter> printer_;
};

}  // namespace sentrel
