#include "desktop/export/page_view.h"

#include <QGraphicsItem>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace sentrel {
namespace {

constexpr double kGap = 0.2 * kPaperDpi;  // around each page
constexpr double kWheelStep = 1.1;

QSizeF SheetOf(const PrintablePages& pages) {
  return pages.Paper().fullRectPixels(kPaperDpi).size();
}

class PageItem : public QGraphicsItem {
 public:
  PageItem(const PrintablePages& pages, int page) : pages_(pages), page_(page) {}

  QRectF boundingRect() const override { return {QPointF(), SheetOf(pages_)}; }

  void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override {
    painter->fillRect(boundingRect(), Qt::white);
    painter->translate(pages_.Paper().paintRectPixels(kPaperDpi).topLeft());
    pages_.Paint(*painter, page_);
  }

 private:
  const PrintablePages& pages_;
  int page_;
};

}  // namespace

PageView::PageView(QWidget* parent) : QGraphicsView(parent) {
  setObjectName("Pages");
  setAccessibleName("Pages");
  setScene(&scene_);
  setBackgroundBrush(palette().brush(QPalette::Dark));
  setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  setDragMode(QGraphicsView::ScrollHandDrag);
  setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  // A bar that comes and goes would change the width that pages are fitted to.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void PageView::ShowPages(std::shared_ptr<const PrintablePages> pages) {
  if (pages == pages_) return;
  const int current = pages_ ? CurrentPage() : 1;
  scene_.clear();
  pages_ = std::move(pages);
  const double height = Sheet().height();
  for (int page = 0; page < pages_->Count(); ++page) {
    auto* item = new PageItem(*pages_, page);
    item->setPos(kGap, kGap + page * (height + kGap));
    scene_.addItem(item);
  }
  scene_.setSceneRect(0, 0, Sheet().width() + 2 * kGap, kGap + pages_->Count() * (height + kGap));
  ApplyZoom();
  GoTo(current);
}

int PageView::CurrentPage() const {
  const double top = mapToScene(viewport()->rect().topLeft()).y();
  const double each = Sheet().height() + kGap;
  return std::clamp(static_cast<int>((top + each / 2) / each) + 1, 1, pages_->Count());
}

void PageView::GoTo(int page) {
  const double top = (std::clamp(page, 1, pages_->Count()) - 1) * (Sheet().height() + kGap);
  const QPoint corner = mapFromScene(mapToScene(viewport()->rect().topLeft()).x(), top);
  verticalScrollBar()->setValue(verticalScrollBar()->value() + corner.y());
}

void PageView::FitWidth() {
  zoom_ = Zoom::Width;
  ApplyZoom();
}

void PageView::FitPage() {
  zoom_ = Zoom::Page;
  ApplyZoom();
}

void PageView::ZoomBy(double factor) {
  zoom_ = Zoom::ByHand;
  const double whole = static_cast<double>(logicalDpiX()) / kPaperDpi;
  SetScale(std::clamp(transform().m11() * factor, 0.1 * whole, 8 * whole));
}

void PageView::resizeEvent(QResizeEvent* event) {
  QGraphicsView::resizeEvent(event);
  ApplyZoom();
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QGraphicsView::wheelEvent(event);
  ZoomBy(event->angleDelta().y() > 0 ? kWheelStep : 1 / kWheelStep);
  event->accept();
}

void PageView::scrollContentsBy(int dx, int dy) {
  QGraphicsView::scrollContentsBy(dx, dy);
  if (pages_) emit CurrentPageChanged(CurrentPage());
}

QSizeF PageView::Sheet() const {
  return SheetOf(*pages_);
}

void PageView::ApplyZoom() {
  if (!pages_ || zoom_ == Zoom::ByHand) return;
  const int current = CurrentPage();
  const double width = viewport()->width() / (Sheet().width() + 2 * kGap);
  const double height = viewport()->height() / (Sheet().height() + 2 * kGap);
  SetScale(zoom_ == Zoom::Width ? width : std::min(width, height));
  GoTo(current);
}

void PageView::SetScale(double scale) {
  setTransform(QTransform::fromScale(scale, scale));
}

}  // namespace sentrel
