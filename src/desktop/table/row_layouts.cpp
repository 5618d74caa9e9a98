#include "desktop/table/row_layouts.h"

#include <QFontMetrics>
#include <algorithm>
#include <utility>

namespace sentrel {
namespace {

/// More layouts than any screen shows; beyond it, all are dropped and made anew when needed.
constexpr size_t kMostLayouts = 512;

/// A little air between lines.
constexpr double kPitchOfSpacing = 1.2;

}  // namespace

const RowLayout& RowLayouts::Of(int row) {
  const auto version = table_.RowVersion(row);
  const auto known = layouts_.find(version);
  if (known != layouts_.end()) return known->second;
  if (layouts_.size() >= kMostLayouts) layouts_.clear();
  return layouts_.emplace(version, MakeLayout(row)).first->second;
}

void RowLayouts::SetColumns(std::vector<int> widths) {
  if (widths == widths_) return;
  widths_ = std::move(widths);
  layouts_.clear();
}

void RowLayouts::SetFont(const QFont& font) {
  font_ = font;
  layouts_.clear();
}

int RowLayouts::LinePitch() const {
  return qRound(QFontMetricsF(font_).lineSpacing() * kPitchOfSpacing);
}

RowLayout RowLayouts::MakeLayout(int row) const {
  RowLayout layout;
  size_t mostLines = 1;
  for (int col = 0; col < static_cast<int>(widths_.size()); ++col) {
    const int room = widths_[static_cast<size_t>(col)] - 2 * kMarginX;
    layout.cells.push_back(CellLines(table_.Cell(row, col), font_, room));
    mostLines = std::max(mostLines, layout.cells.back().size());
  }
  const auto heightOf = [this](size_t lines) {
    return static_cast<int>(lines) * LinePitch() + 2 * kMarginY;
  };
  layout.height = std::clamp(table_.RowHeight(row), heightOf(mostLines), heightOf(kMostLines));
  return layout;
}

}  // namespace sentrel
