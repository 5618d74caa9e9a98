#pragma once

#include <QPageRanges>
#include <string>

#include "desktop/export/printable_pages.h"

namespace sentrel {

/// What a PDF file says about itself.
struct PdfLabels {
  std::string title;
  std::string program;
};

/// The pages as the bytes of a PDF file whose text can be selected. Throws Failure and Cancelled.
std::string PdfFile(const PrintablePages& pages, const QPageRanges& range, const PdfLabels& labels,
                    Progress& progress);

}  // namespace sentrel
