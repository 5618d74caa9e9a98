#include "desktop/export/page_text.h"

#include <QTextLayout>
#include <algorithm>

#include "documents/unicode.h"

namespace sentrel {
namespace {

constexpr qsizetype kMeasuredLetters = 200;  // a line longer than this is wrapped anyway

QStringList ToLines(const std::string& text) {
  QStringList lines;
  for (const std::string_view line : LinesOf(text)) {
    lines << QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())).replace('\t', ' ');
  }
  return lines;
}

}  // namespace

double PageText::Advance(const QString& line) {
  const auto known = advances_.constFind(line);
  if (known != advances_.constEnd()) return *known;
  return *advances_.insert(line, metrics_.horizontalAdvance(line));
}

double PageText::Width(const std::string& text) {
  double widest = 0;
  for (const QString& line : ToLines(text)) {
    widest = std::max(widest, Advance(line.left(kMeasuredLetters)));
  }
  return widest;
}

QStringList PageText::Wrapped(const std::string& text, double width) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QStringList pieces;
  for (const QString& line : ToLines(text)) {
    if (line.size() <= kMeasuredLetters && Advance(line) <= width) {
      pieces << line;
      continue;
    }
    QTextLayout layout(line, font_, device_);
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

std::vector<double> ShareWidth(const std::vector<double>& wanted, double room) {
  constexpr double kOpen = -1;
  std::vector<double> widths(wanted.size(), kOpen);
  std::size_t open = wanted.size();
  for (bool settled = true; settled && open > 0;) {
    settled = false;
    const double share = room / static_cast<double>(open);
    for (std::size_t col = 0; col < wanted.size(); ++col) {
      if (widths[col] != kOpen || wanted[col] > share) continue;
      widths[col] = wanted[col];
      room -= wanted[col];
      --open;
      settled = true;
    }
  }
  if (open == 0 && !widths.empty()) widths.back() += room;
  for (double& width : widths) {
    if (width == kOpen) width = room / static_cast<double>(open);
  }
  return widths;
}

}  // namespace sentrel
