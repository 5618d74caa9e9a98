#include "desktop/export/table_pages.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <algorithm>

namespace sentrel {
namespace {

constexpr double kTitlePoints = 13;
constexpr double kBodyPoints = 8;
constexpr double kSmallPoints = 7.5;
constexpr QRgb kInk = qRgb(0x1B, 0x20, 0x27);
constexpr QRgb kFaint = qRgb(0x57, 0x60, 0x6B);
constexpr QRgb kTitlesColor = qRgb(0xE9, 0xEC, 0xF2);
constexpr QRgb kRule = qRgb(0xB4, 0xBC, 0xC8);

QFont DeviceFont(const QFont& family, QPaintDevice& device, double points) {
  QFont font(family, &device);
  font.setPointSizeF(points);
  return font;
}

double LineHeight(const QFont& font, QPaintDevice* device) {
  return QFontMetricsF(font, device).lineSpacing();
}

QString Text(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

void TablePages::LayOut(QPagedPaintDevice& device, Progress& progress) {
  SetMeasures(device);
  PageText body(fonts_.body, device);
  PageText bold(fonts_.bold, device);
  SetWidths(body, bold);
  blocks_.clear();
  pages_.clear();
  inTable_ = false;
  StartPage();
  if (!content_.paragraph.empty()) {
    PageText text(FontOf(Kind::Paragraph), device);
    Place(AddBlock(text, Kind::Paragraph, {content_.paragraph}));
  }
  if (content_.columns.empty()) return;
  std::vector<std::string> titles;
  for (const ContentColumn& column : content_.columns) titles.push_back(column.title);
  titles_ = AddBlock(bold, Kind::Titles, titles);
  Place(titles_);
  inTable_ = true;
  for (std::size_t row = 0; row < content_.rows.size(); ++row) {
    progress.Advance(row, 2 * content_.rows.size());  // painting is the other half
    Place(AddBlock(body, Kind::Row, content_.rows[row]));
  }
}

void TablePages::SetMeasures(QPagedPaintDevice& device) {
  const QFont sans = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  fonts_.title = DeviceFont(sans, device, kTitlePoints);
  fonts_.title.setBold(true);
  fonts_.small = DeviceFont(sans, device, kSmallPoints);
  fonts_.body = DeviceFont(sans, device, kBodyPoints);
  fonts_.bold = fonts_.body;
  fonts_.bold.setBold(true);
  fonts_.fixed =
      DeviceFont(QFontDatabase::systemFont(QFontDatabase::FixedFont), device, kBodyPoints);

  area_ = PageArea(device);
  pitch_ = LineHeight(fonts_.body, &device);
  padding_ = pitch_ * 0.3;
  margin_ = pitch_ * 0.4;
  const int smallLines = content_.subTitle.empty() ? 0 : 1;
  bodyTop_ = LineHeight(fonts_.title, &device) + pitch_ * (0.5 + smallLines);
  bodyBottom_ = area_.height() - LineHeight(fonts_.small, &device) - pitch_ * 0.5;
}

void TablePages::SetWidths(PageText& body, PageText& bold) {
  std::vector<double> wanted;
  for (std::size_t col = 0; col < content_.columns.size(); ++col) {
    double width = bold.Width(content_.columns[col].title);
    for (const auto& row : content_.rows) width = std::max(width, body.Width(row[col]));
    wanted.push_back(width + 2 * margin_ + 1);
  }
  widths_ = ShareWidth(wanted, area_.width());
}

std::size_t TablePages::AddBlock(PageText& text, Kind kind, const std::vector<std::string>& cells) {
  Block block{kind, {}, 0};
  for (std::size_t col = 0; col < cells.size(); ++col) {
    const double width = kind == Kind::Paragraph ? area_.width() : widths_[col];
    block.cells.push_back(text.Wrapped(cells[col], width - 2 * margin_));
    block.lines = std::max(block.lines, static_cast<int>(block.cells.back().size()));
  }
  blocks_.push_back(std::move(block));
  return blocks_.size() - 1;
}

/// A block that fits on a page is not split; another begins where there is room for a line.
void TablePages::Place(std::size_t block) {
  const int lines = blocks_[block].lines;
  const double titles = inTable_ ? Height(blocks_[titles_].lines) : 0;
  const bool fitsOnAPage = bodyTop_ + titles + Height(lines) <= bodyBottom_;
  for (int first = 0; first < lines;) {
    const double room = bodyBottom_ - y_;
    const int fitting = static_cast<int>((room - 2 * padding_) / pitch_);
    const int wanted = lines - first;
    const bool pageIsFresh = y_ <= bodyTop_ + titles;
    if (fitting < wanted && !pageIsFresh && (fitsOnAPage || fitting < 1)) {
      StartPage();
      continue;
    }
    const int taken = std::clamp(fitting, 1, wanted);
    pages_.back().push_back({block, first, taken, y_, first + taken == lines});
    y_ += Height(taken);
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
  y_ += Height(lines);
}

const QFont& TablePages::FontOf(Kind kind) const {
  if (kind == Kind::Titles) return fonts_.bold;
  return kind == Kind::Paragraph && content_.columns.empty() ? fonts_.fixed : fonts_.body;
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
  const QRectF head(0, 0, area_.width(), bodyTop_ - pitch_ * 0.5);
  painter.setPen(QColor(kInk));
  painter.setFont(fonts_.title);
  painter.drawText(head, Qt::AlignLeft | Qt::AlignTop, Text(content_.title));
  painter.setPen(QColor(kFaint));
  painter.setFont(fonts_.small);
  painter.drawText(head, Qt::AlignRight | Qt::AlignTop, Text(content_.madeText));
  painter.drawText(head, Qt::AlignLeft | Qt::AlignBottom, Text(content_.subTitle));
}

void TablePages::PaintFoot(QPainter& painter, int page) const {
  const QRectF foot(0, bodyBottom_, area_.width(), area_.height() - bodyBottom_);
  painter.setPen(QColor(kFaint));
  painter.setFont(fonts_.small);
  painter.drawText(foot, Qt::AlignLeft | Qt::AlignBottom,
                   Text(content_.footer.empty() ? content_.program : content_.footer));
  painter.drawText(foot, Qt::AlignRight | Qt::AlignBottom,
                   QString("Page %1 of %2").arg(page + 1).arg(Count()));
}

void TablePages::PaintPiece(QPainter& painter, const Piece& piece) const {
  const Block& block = blocks_[piece.block];
  const QRectF band(0, piece.top, area_.width(), Height(piece.lines));
  if (block.kind == Kind::Titles) painter.fillRect(band, QColor(kTitlesColor));
  if (block.kind != Kind::Paragraph && piece.last) {
    painter.setPen(QPen(QColor(kRule), pitch_ * 0.05));
    painter.drawLine(band.bottomLeft(), band.bottomRight());
  }
  painter.setPen(QColor(kInk));
  painter.setFont(FontOf(block.kind));
  double left = 0;
  for (std::size_t col = 0; col < block.cells.size(); ++col) {
    PaintCell(painter, block, piece, col, left);
    if (block.kind != Kind::Paragraph) left += widths_[col];
  }
}

void TablePages::PaintCell(QPainter& painter, const Block& block, const Piece& piece,
                           std::size_t col, double left) const {
  const bool spans = block.kind == Kind::Paragraph;
  const double width = spans ? area_.width() : widths_[col];
  const bool centered = !spans && content_.columns[col].alignment == Alignment::Center;
  const QStringList& lines = block.cells[col];
  const int end = std::min(piece.firstLine + piece.lines, static_cast<int>(lines.size()));
  const QFontMetricsF metrics(painter.font(), painter.device());
  for (int line = piece.firstLine; line < end; ++line) {
    const QString& text = lines[line];
    double x = left + margin_;
    if (centered || text.isRightToLeft()) {
      const double spare = width - 2 * margin_ - metrics.horizontalAdvance(text);
      x += centered ? spare / 2 : spare;
    }
    const double top = piece.top + padding_ + (line - piece.firstLine) * pitch_;
    painter.drawText(QPointF(x, top + metrics.ascent()), text);
  }
}

}  // namespace sentrel
