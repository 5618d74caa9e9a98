#pragma once

#include <QTextDocument>
#include <memory>

#include "desktop/export/printable_pages.h"

namespace sentrel {

/// A page of the manual on sheets of paper, in dark letters on white whatever the desktop's
/// colours.
class DocumentPages : public PrintablePages {
 public:
  /// Copies the document.
  DocumentPages(const QTextDocument& document, const QPageLayout& paper);

  int Count() const override { return document_->pageCount(); }
  void Paint(QPainter& painter, int page) const override;

 private:
  std::unique_ptr<QTextDocument> document_;
};

}  // namespace sentrel
