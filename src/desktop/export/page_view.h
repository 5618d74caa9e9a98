#pragma once

#include <QGraphicsScene>
#include <QGraphicsView>
#include <memory>

#include "desktop/export/printable_pages.h"

namespace sentrel {

/// Shows pages one below the other, at any zoom. Only visible pages are painted, so that their
/// number does not matter. Used on the event loop.
class PageView : public QGraphicsView {
  Q_OBJECT
 public:
  explicit PageView(QWidget* parent);

  /// Shows these pages instead of the earlier ones, at the same page and zoom.
  void ShowPages(std::shared_ptr<const PrintablePages> pages);
  /// The page at the top of the view, counted from 1.
  int CurrentPage() const;
  void GoTo(int page);
  /// The zoom then follows the size of the view, until ZoomBy.
  void FitWidth();
  void FitPage();
  /// Multiplies the zoom; the result is between 10 % and 800 % of the real size.
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
