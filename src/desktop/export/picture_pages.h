#pragma once

#include <QImage>

#include "desktop/export/printable_pages.h"
#include "platform/export_backend.h"

namespace sentrel {

/// A picture in the middle of one page, as large as fits but never enlarged.
class PicturePages : public PrintablePages {
 public:
  PicturePages(QImage image, const QPageLayout& paper);

  int Count() const override { return 1; }
  void Paint(QPainter& painter, int page) const override;

 private:
  QImage image_;
  QRectF place_;
};

/// A copy. Throws Failure if the size does not match the number of pixels.
QImage ToImage(const Picture& picture);

/// Whether the toolkit can write a picture format, named by its file extension in any case.
bool CanWriteImage(const std::string& format);
/// The extension, in lower case, of the format to write: PNG instead of one that cannot be written.
QString ImageExtension(const std::string& format);
/// The bytes of a file. Throws Failure.
QByteArray EncodeImage(const QImage& image, const QString& extension);

}  // namespace sentrel
