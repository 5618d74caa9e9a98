#pragma once

#include <QFont>
#include <unordered_map>
#include <vector>

#include "controls/table.h"
#include "desktop/table/cell_lines.h"

namespace sentrel {

/// How a row is laid out for the screen: the lines of each cell, and the row's height in pixels.
struct RowLayout {
  std::vector<std::vector<CellLine>> cells;
  int height = 0;
};

/// Lays out rows of a table and keeps the layouts of rows that stay in use. Used on the event loop
/// only; the table must outlive it. A layout is known by its row's version, so a row whose text has
/// changed gets a new one.
class RowLayouts {
 public:
  explicit RowLayouts(const Table& table) : table_(table) {}

  /// The reference is good until the next call of any member.
  const RowLayout& Of(int row);
  int Height(int row) { return Of(row).height; }

  /// Columns are as wide as the header shows them, which may be wider than the table's own width.
  void SetColumns(std::vector<int> widths);
  void SetFont(const QFont& font);
  /// From one line of a cell to the next, in pixels.
  int LinePitch() const;

  /// Blank pixels between a cell's text and its edges.
  static constexpr int kMarginX = 3;
  static constexpr int kMarginY = 2;

 private:
  RowLayout MakeLayout(int row) const;

  const Table& table_;
  QFont font_;
  std::vector<int> widths_;
  std::unordered_map<std::uint64_t, RowLayout> layouts_;  // by row version
};

}  // namespace sentrel
