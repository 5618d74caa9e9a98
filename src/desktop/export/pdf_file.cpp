#include "desktop/export/pdf_file.h"

#include <QBuffer>
#include <QPdfWriter>

namespace sentrel {

std::string PdfFile(const PrintablePages& pages, const QPageRanges& range, const PdfLabels& labels,
                    Progress& progress) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(QString::fromStdString(labels.title));
  writer.setCreator(QString::fromStdString(labels.program));
  writer.setResolution(kPaperDpi);
  writer.setPageLayout(pages.Paper());
  PaintPages(pages, range, writer, progress);
  return bytes.toStdString();
}

}  // namespace sentrel
