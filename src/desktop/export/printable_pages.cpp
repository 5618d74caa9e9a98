#include "desktop/export/printable_pages.h"

#include <fmt/format.h>

#include <vector>

#include "common/failure.h"

namespace sentrel {

namespace {

/// Counted from 1.
std::vector<int> ChosenPages(const PrintablePages& pages, const QPageRanges& range) {
  std::vector<int> chosen;
  for (int page = 1; page <= pages.Count(); ++page) {
    if (range.isEmpty() || range.contains(page)) chosen.push_back(page);
  }
  return chosen;
}

}  // namespace

void PaintPages(const PrintablePages& pages, const QPageRanges& range, QPagedPaintDevice& device,
                Progress& progress) {
  const std::vector<int> chosen = ChosenPages(pages, range);
  if (chosen.empty()) {
    throw Failure(fmt::format("The document has none of the pages {}: it ends with page {}.",
                              range.toString().toStdString(), pages.Count()));
  }
  QPainter painter;
  if (!painter.begin(&device)) throw Failure("The printer does not accept the document.");
  const double scale = static_cast<double>(device.logicalDpiX()) / kPaperDpi;
  painter.scale(scale, scale);
  for (std::size_t done = 0; done < chosen.size(); ++done) {
    progress.Advance(done, chosen.size());
    if (done > 0 && !device.newPage()) {
      throw Failure("The printer does not accept another page.");
    }
    pages.Paint(painter, chosen[done] - 1);
  }
}

}  // namespace sentrel
