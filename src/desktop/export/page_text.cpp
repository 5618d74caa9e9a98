#include "desktop/export/page_text.h"

#include <QTextLayout>

#include "documents/unicode.h"

namespace sentrel {
namespace {

constexpr qsizetype kMeasuredLetters = 200;  // a line longer than this is wrapped anyway

}  // namespace

QStringList PageLines(const std::string& text) {
  QStringList lines;
  for (const std::string_view line : LinesOf(text)) {
    lines << QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())).replace('\t', ' ');
  }
  return lines;
}

double PageText::Width(const QString& line) {
  const QString measured = line.left(kMeasuredLetters);
  const auto known = widths_.constFind(measured);
  if (known != widths_.constEnd()) return *known;
  return *widths_.insert(measured, metrics_.horizontalAdvance(measured));
}

QStringList PageText::Wrapped(const std::string& text, double width) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QStringList pieces;
  for (const QString& line : PageLines(text)) {
    if (line.size() <= kMeasuredLetters && Width(line) <= width) {
      pieces << line;
      continue;
    }
    QTextLayout layout(line, font_);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine piece = layout.createLine(); piece.isValid(); piece = layout.createLine()) {
      piece.setLineWidth(width);
      pieces << line.mid(piece.textStart(), piece.textLength());
    }
    layout.endLayout();
  }
  return pieces;
}

}  // namespace sentrel
