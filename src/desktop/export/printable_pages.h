#pragma once

#include <QPageLayout>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <functional>
#include <memory>

#include "documents/progress.h"

namespace sentrel {

/// All measures of pages are in this many units per inch, whatever shows or prints them.
inline constexpr int kPaperDpi = 600;

/// Something laid out on sheets of one paper, as preview, printer and PDF file show it alike. It
/// never changes. Used on the event loop.
class PrintablePages {
 public:
  explicit PrintablePages(const QPageLayout& paper) : paper_(paper) {}
  virtual ~PrintablePages() = default;

  const QPageLayout& Paper() const { return paper_; }
  /// What may be painted of a sheet, margins left out.
  QSizeF Area() const { return paper_.paintRectPixels(kPaperDpi).size(); }
  /// At least 1.
  virtual int Count() const = 0;
  /// Paints one page, from 0 to Count() - 1, with the top left corner of Area() at the painter's
  /// origin.
  virtual void Paint(QPainter& painter, int page) const = 0;

 private:
  QPageLayout paper_;
};

/// Lays an object out on a paper; never gives null. Throws Cancelled.
using PageMaker =
    std::function<std::unique_ptr<PrintablePages>(const QPageLayout& paper, Progress& progress)>;

/// Paints the pages of the range, which are counted from 1; an empty range is all of them. Throws
/// Failure where the range holds none of the pages or the device does not take them, and Cancelled.
void PaintPages(const PrintablePages& pages, const QPageRanges& range, QPagedPaintDevice& device,
                Progress& progress);

}  // namespace sentrel
