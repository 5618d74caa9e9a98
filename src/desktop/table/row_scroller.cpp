#include "desktop/table/row_scroller.h"

#include <algorithm>

namespace sentrel {

void RowScroller::RowInserted(int row) {
  ++lastRow_;
  if (!AtTop() && row <= top_) ++top_;
}

void RowScroller::RowRemoved(int row) {
  --lastRow_;
  if (row == top_) above_ = 0;
  if (row < top_) --top_;
  top_ = std::clamp(top_, 1, std::max(lastRow_, 1));
}

void RowScroller::ScrollBy(int pixels) {
  above_ += pixels;
  while (above_ < 0 && top_ > 1) above_ += heightOf_(--top_);
  while (top_ < lastRow_ && above_ >= heightOf_(top_)) above_ -= heightOf_(top_++);
  Clamp();
}

void RowScroller::MakeVisible(int row) {
  if (row <= top_) {
    top_ = std::max(row, 1);
    above_ = 0;
    return;
  }
  int room = viewHeight_;
  int first = row + 1;
  while (first > 1 && room > 0) room -= heightOf_(--first);
  const bool tall = first == row && room < 0;
  const Position lowest{first, tall ? 0 : std::max(-room, 0)};
  if (lowest.row < top_ || (lowest.row == top_ && lowest.above <= above_)) return;
  top_ = lowest.row;
  above_ = lowest.above;
}

void RowScroller::SetExtent(int lastRow, int viewHeight) {
  viewHeight = std::max(viewHeight, 1);
  const bool changed = lastRow != measuredRow_ || viewHeight != viewHeight_;
  lastRow_ = lastRow;
  viewHeight_ = viewHeight;
  Clamp();
  if (changed || !AtTop()) Measure();
}

int RowScroller::RowAt(int y) const {
  if (lastRow_ == 0) return 0;
  int row = top_;
  int bottom = heightOf_(row) - above_;
  if (y < 0) return row;
  while (y >= bottom && row < lastRow_) bottom += heightOf_(++row);
  return row;
}

int RowScroller::Value() const {
  return lastRow_ == 0 ? 0 : ValueOf({top_, above_});
}

void RowScroller::Measure() {
  measuredRow_ = lastRow_;
  maximum_ = lastRow_ == 0 ? 0 : ValueOf(Lowest());
}

void RowScroller::GoTo(int row, int pixelsAbove) {
  if (lastRow_ == 0) return;
  top_ = std::clamp(row, 1, lastRow_);
  above_ = pixelsAbove;
  Clamp();
}

void RowScroller::SetValue(int value) {
  if (lastRow_ == 0) return;
  if (value > 0 && value >= maximum_) return ScrollToEnd();
  top_ = std::clamp(value / kUnits + 1, 1, lastRow_);
  above_ = value % kUnits * heightOf_(top_) / kUnits;
  Clamp();
}

RowScroller::Position RowScroller::Lowest() const {
  int room = viewHeight_;
  int row = lastRow_ + 1;
  while (row > 1 && room > 0) room -= heightOf_(--row);
  return {std::max(row, 1), std::max(-room, 0)};
}

void RowScroller::ScrollToEnd() {
  const Position lowest = Lowest();
  top_ = lowest.row;
  above_ = lowest.above;
}

int RowScroller::ValueOf(const Position& position) const {
  return (position.row - 1) * kUnits + position.above * kUnits / heightOf_(position.row);
}

void RowScroller::Clamp() {
  if (lastRow_ == 0) {
    top_ = 1;
    above_ = 0;
    return;
  }
  above_ = std::max(above_, 0);
  if (AtTop()) return;
  const Position lowest = Lowest();
  if (top_ > lowest.row || (top_ == lowest.row && above_ > lowest.above)) ScrollToEnd();
}

}  // namespace sentrel
