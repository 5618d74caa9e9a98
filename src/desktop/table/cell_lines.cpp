#include "desktop/table/cell_lines.h"

#include <QFontMetrics>
#include <QTextLayout>
#include <QtMath>
#include <algorithm>

#include "common/visible_text.h"

namespace sentrel {
namespace {

constexpr char16_t kReplacement = 0xFFFD;
/// No language needs more marks on one letter.
constexpr int kHighestPile = 8;
/// No glyph is narrower than this many pixels: no more text is laid out than can be seen.
constexpr int kNarrowestGlyph = 2;

/// Is drawn on or within the character before it, and may be piled up without end.
bool TakesNoRoom(char32_t c) {
  switch (QChar::category(c)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
      return true;
    default:
      return false;
  }
}

/// Marks beyond the highest pile are replaced: they would take long to lay out and hide the letter
/// below them.
void LevelPiles(QString& line) {
  int height = 0;
  for (qsizetype i = 0; i < line.size(); ++i) {
    const bool pair = line[i].isHighSurrogate() && i + 1 < line.size();
    const char32_t c = pair ? QChar::surrogateToUcs4(line[i], line[i + 1]) : line[i].unicode();
    height = TakesNoRoom(c) ? height + 1 : 0;
    if (height > kHighestPile) line[i] = kReplacement;
    if (!pair) continue;
    ++i;
    if (height > kHighestPile) line[i] = kReplacement;
  }
}

void Wrap(const QString& line, const QFont& font, const QFontMetrics& metrics, int width,
          std::vector<CellLine>& lines) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QTextLayout layout(line, font);
  layout.setTextOption(option);
  layout.beginLayout();
  const size_t before = lines.size();
  for (int start = 0; start < line.size();) {
    if (lines.size() - before + 1 == kMostWrappedLines) {
      const QString rest = metrics.elidedText(line.mid(start), Qt::ElideRight, width);
      lines.push_back({rest, metrics.horizontalAdvance(rest)});
      break;
    }
    QTextLine piece = layout.createLine();
    if (!piece.isValid()) break;
    piece.setLineWidth(width);
    lines.push_back({line.mid(start, piece.textLength()), qCeil(piece.naturalTextWidth())});
    start += piece.textLength();
  }
  layout.endLayout();
}

}  // namespace

std::vector<CellLine> CellLines(const std::string& text, const QFont& font, int width) {
  const QFontMetrics metrics(font);
  const int room = std::max(width, metrics.maxWidth());
  const qsizetype visible = static_cast<qsizetype>(room) / kNarrowestGlyph * kMostWrappedLines;
  QString whole = QString::fromStdString(VisibleText(text));
  whole.replace("\r\n", "\n").replace('\r', '\n');
  std::vector<CellLine> lines;
  for (QStringView part : QStringView(whole).tokenize(u'\n')) {
    QString line = part.left(visible).toString();
    line.replace(u'\t', u' ');
    LevelPiles(line);
    if (const int advance = metrics.horizontalAdvance(line); advance <= room) {
      lines.push_back({line, advance});
    } else {
      Wrap(line, font, metrics, room, lines);
    }
    if (lines.size() > kMostLines) {
      lines.resize(kMostLines);
      lines.back() = {QStringLiteral("…"), metrics.horizontalAdvance(u'…')};
      break;
    }
  }
  return lines;
}

}  // namespace sentrel
