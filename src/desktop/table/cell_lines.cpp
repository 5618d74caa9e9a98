#include "desktop/table/cell_lines.h"

#include <QFontMetrics>
#include <QTextLayout>
#include <algorithm>

namespace sentrel {
namespace {

constexpr char16_t kControlPictures = 0x2400;  // U+2400 shows 0x00, U+2401 shows 0x01, ...
constexpr char16_t kReplacement = 0xFFFD;
/// No glyph is narrower than this many pixels: no more text is laid out than can be seen.
constexpr int kNarrowestGlyph = 2;

bool ChangesDirection(QChar c) {
  const auto code = c.unicode();
  return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069) ||
         code == 0x200E || code == 0x200F || code == 0x061C;
}

QChar Harmless(QChar c) {
  if (c == u'\t') return u' ';
  if (c.unicode() < 0x20) return QChar(static_cast<char16_t>(kControlPictures + c.unicode()));
  if (c.category() == QChar::Other_Control || ChangesDirection(c)) return kReplacement;
  if (c == QChar::LineSeparator || c == QChar::ParagraphSeparator) return kReplacement;
  return c;
}

QStringList Wrapped(const QString& line, const QFont& font, const QFontMetrics& metrics,
                    int width) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QTextLayout layout(line, font);
  layout.setTextOption(option);
  layout.beginLayout();
  QStringList pieces;
  for (int start = 0; start < line.size();) {
    if (pieces.size() + 1 == kMostWrappedLines) {
      pieces << metrics.elidedText(line.mid(start), Qt::ElideRight, width);
      break;
    }
    QTextLine piece = layout.createLine();
    if (!piece.isValid()) break;
    piece.setLineWidth(width);
    pieces << line.mid(start, piece.textLength());
    start += piece.textLength();
  }
  layout.endLayout();
  return pieces;
}

}  // namespace

QStringList CellLines(const std::string& text, const QFont& font, int width) {
  const QFontMetrics metrics(font);
  const int room = std::max(width, metrics.maxWidth());
  const qsizetype visible = static_cast<qsizetype>(room) / kNarrowestGlyph * kMostWrappedLines;
  QString whole = QString::fromStdString(text);
  whole.replace("\r\n", "\n").replace('\r', '\n');
  QStringList lines;
  for (QStringView part : QStringView(whole).split(u'\n')) {
    QString line = part.left(visible).toString();
    std::transform(line.begin(), line.end(), line.begin(), Harmless);
    if (metrics.horizontalAdvance(line) <= room) {
      lines << line;
    } else {
      lines << Wrapped(line, font, metrics, room);
    }
  }
  return lines;
}

}  // namespace sentrel
