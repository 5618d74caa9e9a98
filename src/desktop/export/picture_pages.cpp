#include "desktop/export/picture_pages.h"

#include <QBuffer>
#include <QImageWriter>
#include <cstring>

#include "common/failure.h"

namespace sentrel {

PicturePages::PicturePages(QImage image, const QPageLayout& paper)
    : PrintablePages(paper), image_(std::move(image)) {
  constexpr double kScreenDpi = 96;
  const QSizeF area = Area();
  const QSizeF natural = QSizeF(image_.size()) * kPaperDpi / kScreenDpi;
  const bool fits = natural.width() <= area.width() && natural.height() <= area.height();
  const QSizeF size = fits ? natural : natural.scaled(area, Qt::KeepAspectRatio);
  place_ =
      QRectF(QPointF((area.width() - size.width()) / 2, (area.height() - size.height()) / 2), size);
}

void PicturePages::Paint(QPainter& painter, int) const {
  painter.drawImage(place_, image_);
}

QImage ToImage(const Picture& picture) {
  const auto width = static_cast<std::size_t>(std::max(picture.width, 0));
  const auto height = static_cast<std::size_t>(std::max(picture.height, 0));
  if (picture.pixels.empty() || picture.pixels.size() != width * height) {
    throw Failure("The picture is empty or damaged.");
  }
  QImage image(picture.width, picture.height, QImage::Format_ARGB32);
  if (image.isNull()) throw Failure("The picture is too large.");
  for (int y = 0; y < picture.height; ++y) {
    std::memcpy(image.scanLine(y), &picture.pixels[static_cast<std::size_t>(y) * width],
                width * sizeof(std::uint32_t));
  }
  return image;
}

bool CanWriteImage(const std::string& format) {
  const QByteArray name = QByteArray::fromStdString(format).toLower();
  return QImageWriter::supportedImageFormats().contains(name);
}

QString ImageExtension(const std::string& format) {
  return CanWriteImage(format) ? QString::fromStdString(format).toLower() : "png";
}

QByteArray EncodeImage(const QImage& image, const QString& extension) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QImageWriter writer(&buffer, extension.toLatin1());
  if (!writer.write(image)) {
    throw Failure("The picture cannot be written: " + writer.errorString().toStdString() + ".");
  }
  return bytes;
}

}  // namespace sentrel
