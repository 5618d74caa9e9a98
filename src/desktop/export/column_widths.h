#pragma once

#include <vector>

namespace sentrel {

/// What a column asks for, with 0 <= least <= usual <= most, in the unit of the room.
struct ColumnNeed {
  /// Enough for the longest word of its title: an empty column needs no more.
  double least = 0;
  /// Enough for nine of ten of its lines.
  double usual = 0;
  /// Enough for all of its lines, and for its title in one line.
  double most = 0;
};

/// The need of a column, from the widths of its title, of the longest word of the title, and of all
/// lines in its cells.
ColumnNeed NeedOf(double title, double longestWord, std::vector<double> lines);

/// Widths that together fill the room. If there is enough, every column gets the most it needs, and
/// the last one also what is left over. If not, each gets what it usually needs, and the narrow
/// ones get the rest first. If even that is too much, the widest are cut.
std::vector<double> ShareWidth(const std::vector<ColumnNeed>& needs, double room);

}  // namespace sentrel
