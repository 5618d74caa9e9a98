#include "desktop/export/paper_pages.h"

#include "common/failure.h"

namespace sentrel {

QSizeF PageArea(const QPagedPaintDevice& device) {
  return device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
}

void PaintPages(Pages& pages, QPagedPaintDevice& device, Progress& progress, int first, int last) {
  pages.LayOut(device, progress);
  const int end = last == 0 ? pages.Count() : std::min(last, pages.Count());
  QPainter painter;
  if (!painter.begin(&device)) throw Failure("The printer does not accept the document.");
  for (int page = std::max(first, 1); page <= end; ++page) {
    if (page > std::max(first, 1) && !device.newPage()) {
      throw Failure("The printer does not accept another page.");
    }
    pages.Paint(painter, page - 1);
    const auto count = static_cast<std::size_t>(pages.Count());
    progress.Advance(count + static_cast<std::size_t>(page), 2 * count);
  }
}

}  // namespace sentrel
