#pragma once

#include <QPagedPaintDevice>
#include <QPainter>
#include <functional>

#include "documents/progress.h"

namespace sentrel {

/// Something that can be laid out on paper.
class Pages {
 public:
  virtual ~Pages() = default;
  /// Lays everything out for the paper and the resolution of the device, in which all measures are
  /// from then on. Throws Cancelled.
  virtual void LayOut(QPagedPaintDevice& device, Progress& progress) = 0;
  /// At least 1, once laid out.
  virtual int Count() const = 0;
  /// Paints one page, from 0 to Count() - 1, with its top left corner at the painter's origin.
  virtual void Paint(QPainter& painter, int page) const = 0;
};

/// Lays out and paints the pages from `first` to `last`, counted from 1; `last` 0 stands for all.
/// Throws Failure and Cancelled.
void PaintPages(Pages& pages, QPagedPaintDevice& device, Progress& progress, int first = 1,
                int last = 0);

/// The area of the device that pages may fill, in its pixels.
QSizeF PageArea(const QPagedPaintDevice& device);

}  // namespace sentrel
