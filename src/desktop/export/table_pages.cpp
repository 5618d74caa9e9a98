#include "desktop/export/table_pages.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <algorithm>

#include "desktop/export/column_widths.h"
#include "documents/unicode.h"

namespace sentrel {
namespace {

constexpr double kTitlePoints = 13;
constexpr double kBodyPoints = 8;
constexpr double kSmallPoints = 7.5;
constexpr QRgb kInk = qRgb(0x1B, 0x20, 0x27);
constexpr QRgb kFaint = qRgb(0x57, 0x60, 0x6B);
constexpr QRgb kTitlesColor = qRgb(0xE9, 0xEC, 0xF2);
constexpr QRgb kRule = qRgb(0xB4, 0xBC, 0xC8);

QFont PageFont(const QFont& family, double points) {
  constexpr double kPointsPerInch = 72;
  QFont font(family);
  font.setPixelSize(qRound(points * kPaperDpi / kPointsPerInch));
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

double LineHeight(const QFont& font) {
  return QFontMetricsF(font).lineSpacing();
}

QString Text(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

TablePages::TablePages(const TableContent& content, const QPageLayout& paper, Progress& progress)
    : PrintablePages(paper), content_(content) {
  SetMeasures();
  StartPage();
  if (!content_.paragraph.empty()) LayOutParagraph(progress);
  if (!content_.columns.empty()) LayOutTable(progress);
}

void TablePages::SetMeasures() {
  const QFont sans = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  fonts_.title = PageFont(sans, kTitlePoints);
  fonts_.title.setBold(true);
  fonts_.small = PageFont(sans, kSmallPoints);
  fonts_.body = PageFont(sans, kBodyPoints);
  fonts_.bold = fonts_.body;
  fonts_.bold.setBold(true);
  fonts_.fixed = PageFont(QFontDatabase::systemFont(QFontDatabase::FixedFont), kBodyPoints);

  pitch_ = LineHeight(fonts_.body);
  padding_ = pitch_ * 0.3;
  margin_ = pitch_ * 0.4;
  const int smallLines = content_.subTitle.empty() ? 0 : 1;
  bodyTop_ = LineHeight(fonts_.title) + pitch_ * (0.5 + smallLines);
  bodyBottom_ = Area().height() - LineHeight(fonts_.small) - pitch_ * 0.5;
}

void TablePages::LayOutParagraph(Progress& progress) {
  PageText text(FontOf(Kind::Text));
  const std::vector<std::string_view> lines = LinesOf(content_.paragraph);
  for (std::size_t line = 0; line < lines.size(); ++line) {
    progress.Advance(line, lines.size());
    Place(AddBlock(text, Kind::Text, {std::string(lines[line])}));
  }
  y_ += pitch_;
}

void TablePages::LayOutTable(Progress& progress) {
  PageText body(fonts_.body);
  PageText bold(fonts_.bold);
  HalfOfWork measuring(progress, HalfOfWork::First);
  SetWidths(body, bold, measuring);
  std::vector<std::string> titles;
  for (const ContentColumn& column : content_.columns) titles.push_back(column.title);
  titles_ = AddBlock(bold, Kind::Titles, titles);
  Place(titles_);
  inTable_ = true;
  HalfOfWork placing(progress, HalfOfWork::Second);
  for (std::size_t row = 0; row < content_.rows.size(); ++row) {
    placing.Advance(row, content_.rows.size());
    Place(AddBlock(body, Kind::Row, content_.rows[row]));
  }
}

void TablePages::SetWidths(PageText& body, PageText& bold, Progress& progress) {
  const double room = 2 * margin_ + 1;  // around the lines of a cell
  std::vector<std::vector<double>> lines(content_.columns.size());
  for (std::size_t row = 0; row < content_.rows.size(); ++row) {
    progress.Advance(row, content_.rows.size());
    for (std::size_t col = 0; col < lines.size(); ++col) {
      for (const QString& line : PageLines(content_.rows[row][col])) {
        lines[col].push_back(body.Width(line) + room);
      }
    }
  }
  std::vector<ColumnNeed> needs;
  for (std::size_t col = 0; col < lines.size(); ++col) {
    const QString title = Text(content_.columns[col].title);
    double longestWord = 0;
    for (const QString& word : title.split(' ')) {
      longestWord = std::max(longestWord, bold.Width(word));
    }
    needs.push_back(NeedOf(bold.Width(title) + room, longestWord + room, std::move(lines[col])));
  }
  widths_ = ShareWidth(needs, Area().width());
}

double TablePages::WidthOf(Kind kind, std::size_t col) const {
  return kind == Kind::Text ? Area().width() : widths_[col];
}

std::size_t TablePages::AddBlock(PageText& text, Kind kind, const std::vector<std::string>& cells) {
  Block block{kind, {}, 0};
  for (std::size_t col = 0; col < cells.size(); ++col) {
    block.cells.push_back(text.Wrapped(cells[col], WidthOf(kind, col) - 2 * margin_));
    block.lines = std::max(block.lines, static_cast<int>(block.cells.back().size()));
  }
  blocks_.push_back(std::move(block));
  return blocks_.size() - 1;
}

/// A block that fits on one page is not split; a taller one starts wherever a line has room.
void TablePages::Place(std::size_t block) {
  const Kind kind = blocks_[block].kind;
  const int lines = blocks_[block].lines;
  const double titles = inTable_ ? Height(Kind::Titles, blocks_[titles_].lines) : 0;
  const bool fitsOnAPage = bodyTop_ + titles + Height(kind, lines) <= bodyBottom_;
  for (int first = 0; first < lines;) {
    const double room = bodyBottom_ - y_;
    const int fitting = static_cast<int>((room - 2 * PaddingOf(kind)) / pitch_);
    const int wanted = lines - first;
    const bool pageIsFresh = y_ <= bodyTop_ + titles;
    if (fitting < wanted && !pageIsFresh && (fitsOnAPage || fitting < 1)) {
      StartPage();
      continue;
    }
    const int taken = std::clamp(fitting, 1, wanted);
    pages_.back().push_back({block, first, taken, y_, first + taken == lines});
    y_ += Height(kind, taken);
    first += taken;
    if (first < lines) StartPage();
  }
}

void TablePages::StartPage() {
  pages_.emplace_back();
  y_ = bodyTop_;
  if (!inTable_) return;
  const int lines = blocks_[titles_].lines;
  pages_.back().push_back({titles_, 0, lines, y_, true});
  y_ += Height(Kind::Titles, lines);
}

const QFont& TablePages::FontOf(Kind kind) const {
  if (kind == Kind::Titles) return fonts_.bold;
  return kind == Kind::Text && content_.columns.empty() ? fonts_.fixed : fonts_.body;
}

void TablePages::Paint(QPainter& painter, int page) const {
  painter.save();
  painter.setLayoutDirection(Qt::LayoutDirectionAuto);
  PaintHead(painter);
  for (const Piece& piece : pages_[static_cast<std::size_t>(page)]) PaintPiece(painter, piece);
  PaintFoot(painter, page);
  painter.restore();
}

void TablePages::PaintHead(QPainter& painter) const {
  const QRectF head(0, 0, Area().width(), bodyTop_ - pitch_ * 0.5);
  painter.setPen(QColor(kInk));
  painter.setFont(fonts_.title);
  painter.drawText(head, Qt::AlignLeft | Qt::AlignTop, Text(content_.title));
  painter.setPen(QColor(kFaint));
  painter.setFont(fonts_.small);
  painter.drawText(head, Qt::AlignRight | Qt::AlignTop, Text(content_.madeText));
  painter.drawText(head, Qt::AlignLeft | Qt::AlignBottom, Text(content_.subTitle));
}

void TablePages::PaintFoot(QPainter& painter, int page) const {
  const QRectF foot(0, bodyBottom_, Area().width(), Area().height() - bodyBottom_);
  painter.setPen(QColor(kFaint));
  painter.setFont(fonts_.small);
  painter.drawText(foot, Qt::AlignLeft | Qt::AlignBottom,
                   Text(content_.footer.empty() ? content_.program : content_.footer));
  painter.drawText(foot, Qt::AlignRight | Qt::AlignBottom,
                   QString("Page %1 of %2").arg(page + 1).arg(Count()));
}

void TablePages::PaintPiece(QPainter& painter, const Piece& piece) const {
  const Block& block = blocks_[piece.block];
  const QRectF band(0, piece.top, Area().width(), Height(block.kind, piece.lines));
  if (block.kind == Kind::Titles) painter.fillRect(band, QColor(kTitlesColor));
  if (block.kind != Kind::Text && piece.last) {
    painter.setPen(QPen(QColor(kRule), pitch_ * 0.05));
    painter.drawLine(band.bottomLeft(), band.bottomRight());
  }
  painter.setPen(QColor(kInk));
  painter.setFont(FontOf(block.kind));
  double left = 0;
  for (std::size_t col = 0; col < block.cells.size(); ++col) {
    PaintCell(painter, block, piece, col, left);
    left += WidthOf(block.kind, col);
  }
}

void TablePages::PaintCell(QPainter& painter, const Block& block, const Piece& piece,
                           std::size_t col, double left) const {
  const bool inColumn = block.kind != Kind::Text;
  const bool centered = inColumn && content_.columns[col].alignment == Alignment::Center;
  const QStringList& lines = block.cells[col];
  const int end = std::min(piece.firstLine + piece.lines, static_cast<int>(lines.size()));
  const QFontMetricsF metrics(painter.font());
  for (int line = piece.firstLine; line < end; ++line) {
    const QString& text = lines[line];
    double x = left + margin_;
    if (centered || text.isRightToLeft()) {
      const double spare = WidthOf(block.kind, col) - 2 * margin_ - metrics.horizontalAdvance(text);
      x += centered ? spare / 2 : spare;
    }
    const double top = piece.top + PaddingOf(block.kind) + (line - piece.firstLine) * pitch_;
    painter.drawText(QPointF(x, top + metrics.ascent()), text);
  }
}

}  // namespace sentrel
