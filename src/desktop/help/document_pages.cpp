#include "desktop/help/document_pages.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>

namespace sentrel {
namespace {

/// Something as fine as the pages, for which the document is laid out.
QImage PaperDevice() {
  constexpr double kInchesPerMetre = 1 / 0.0254;
  QImage device(1, 1, QImage::Format_RGB32);
  device.setDotsPerMeterX(qRound(kPaperDpi * kInchesPerMetre));
  device.setDotsPerMeterY(qRound(kPaperDpi * kInchesPerMetre));
  return device;
}

}  // namespace

DocumentPages::DocumentPages(const QTextDocument& document, const QPageLayout& paper)
    : PrintablePages(paper), document_(document.clone()) {
  static QImage device = PaperDevice();
  document_->documentLayout()->setPaintDevice(&device);
  document_->setDocumentMargin(0);
  document_->setPageSize(Area());
}

void DocumentPages::Paint(QPainter& painter, int page) const {
  const QRectF part(QPointF(0, page * Area().height()), Area());
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = part;
  context.palette.setColor(QPalette::Text, Qt::black);
  painter.save();
  painter.translate(-part.topLeft());
  painter.setClipRect(part);
  document_->documentLayout()->draw(&painter, context);
  painter.restore();
}

}  // namespace sentrel
