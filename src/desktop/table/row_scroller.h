#pragma once

#include <functional>
#include <utility>

namespace sentrel {

/// The place of a view in rows of many heights: the row at the top edge, and how many of its pixels
/// are above the edge. Rows count from 1. No operation looks at more rows than fit on the screen.
///
/// While the view is at the very top, new rows push the others down; anywhere else the rows on the
/// screen stay where they are.
///
/// Used on the event loop only. After each call of SetExtent, ScrollBy and SetValue the place is
/// one of the rows, or the top where there are none, and nothing blank is below the last row unless
/// all rows fit; RowInserted and RowRemoved leave that to the next SetExtent, since they may come
/// many times a frame. 0 <= PixelsAbove(), and it is 0 at the top.
class RowScroller {
 public:
  using HeightOf = std::function<int(int row)>;

  /// Heights are asked for as they are needed, in pixels, greater than 0.
  explicit RowScroller(HeightOf heightOf) : heightOf_(std::move(heightOf)) {}

  int LastRow() const { return lastRow_; }
  int TopRow() const { return top_; }
  int PixelsAbove() const { return above_; }
  bool AtTop() const { return top_ == 1 && above_ == 0; }

  void RowInserted(int row);
  void RowRemoved(int row);

  /// Moves by pixels, down where positive, without leaving the rows.
  void ScrollBy(int pixels);
  /// Puts a row at the top edge, so many of its pixels above it.
  void GoTo(int row, int pixelsAbove);
  /// Moves as little as shows the row whole, or its top where it is taller than the view.
  void MakeVisible(int row);
  /// Takes the size of things into account: number of the last row (0 for none), height of the
  /// view. A view without height counts as one of a single pixel.
  void SetExtent(int lastRow, int viewHeight);

  /// The row at a height of the view; the nearest one above or below the rows. 0 without rows.
  int RowAt(int y) const;
  /// Last row that is at least partly seen.
  int BottomRow() const { return RowAt(viewHeight_ - 1); }

  /// For a scroll bar: kUnits for each row, so that rows count alike however tall they are.
  static constexpr int kUnits = 256;
  int Value() const;
  /// While the view is at the very top this is measured only when its extent has changed: in a
  /// storm the last rows would be laid out for nothing else.
  int Maximum() const { return maximum_; }
  /// The maximum is the end of the rows, also where they have changed since it was measured.
  void SetValue(int value);

 private:
  struct Position {
    int row;
    int above;
  };
  Position Lowest() const;
  void ScrollToEnd();
  int ValueOf(const Position& position) const;
  void Clamp();
  void Measure();

  HeightOf heightOf_;
  int top_ = 1;
  int above_ = 0;
  int lastRow_ = 0;
  int viewHeight_ = 1;
  int measuredRow_ = 0;
  int maximum_ = 0;
};

}  // namespace sentrel
