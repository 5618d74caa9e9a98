#pragma once

#include <QPageLayout>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <functional>
#include <memory>

#include "documents/progress.h"

namespace sentrel {

/// All lengths on pages are in this many units per inch, whatever device shows or prints them.
inline constexpr int kPaperDpi = 600;
/// At the start, in millimetres.
inline constexpr QMarginsF kPaperMargins{15, 15, 15, 15};

/// Something laid out on sheets of one kind of paper, the same for preview, printer and PDF file.
/// Never changes. Used on the event loop.
class PrintablePages {
 public:
  explicit PrintablePages(const QPageLayout& paper) : paper_(paper) {}
  virtual ~PrintablePages() = default;

  const QPageLayout& Paper() const { return paper_; }
  /// The sheet without its margins.
  QSizeF Area() const { return paper_.paintRectPixels(kPaperDpi).size(); }
  /// At least 1.
  virtual int Count() const = 0;
  /// Paints one page, from 0 to Count() - 1, with the top left corner of Area() at the painter's
  /// origin.
  virtual void Paint(QPainter& painter, int page) const = 0;

 private:
  QPageLayout paper_;
};

/// Lays an object out on paper; never returns null. Throws Cancelled.
using PageMaker =
    std::function<std::unique_ptr<PrintablePages>(const QPageLayout& paper, Progress& progress)>;

/// Paints the pages of a range, counted from 1; an empty range means all. Throws Cancelled, and
/// Failure if the range contains none of the pages or the device does not accept them.
void PaintPages(const PrintablePages& pages, const QPageRanges& range, QPagedPaintDevice& device,
                Progress& progress);

}  // namespace sentrel
