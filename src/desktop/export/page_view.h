#pragma once

#include <QGraphicsScene>
#include <QGraphicsView>
#include <memory>

#include "desktop/export/printable_pages.h"

namespace sentrel {

/// Shows pages one below the other and zooms. Only what can be seen is painted, so that the number
/// of pages does not matter.
class PageView : public QGraphicsView {
  Q_OBJECT
 public:
  explicit PageView(QWidget* parent);

  /// Shows these pages in place of the others, at the same page and zoom.
  void ShowPages(std::shared_ptr<const PrintablePages> pages);
  /// The page at the upper edge, counted from 1.
  int CurrentPage() const;
  void GoTo(int page);
  /// The zoom follows the size of the view until it is set by hand.
  void FitWidth();
  void FitPage();
  /// Multiplies the zoom, within 10 % and 800 % of the paper.
  void ZoomBy(double factor);

 signals:
  void CurrentPageChanged(int page);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  enum class Zoom { Width, Page, ByHand };
  QSizeF Sheet() const;
  void ApplyZoom();
  void SetScale(double scale);

  QGraphicsScene scene_;
  std::shared_ptr<const PrintablePages> pages_;
  Zoom zoom_ = Zoom::Width;
};

}  // namespace sentrel
