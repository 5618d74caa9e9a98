#pragma once

#include <vector>

namespace sentrel {

/// What a column asks for, with 0 <= least <= usual <= most, in the unit of the room.
struct ColumnNeed {
  /// For the longest word of its title: an empty column needs no more.
  double least = 0;
  /// Nine of ten of its lines fit.
  double usual = 0;
  /// All of its lines fit, and its title in one line.
  double most = 0;
};

/// The need of a column from the widths of its title, of the longest word in it and of all lines of
/// its cells.
ColumnNeed NeedOf(double title, double longestWord, std::vector<double> lines);

/// Widths that together fill the room. All get what they need at most, and the last what is spare.
/// Where there is less, each gets what it usually needs, and what is left goes to the narrow ones
/// first; where there is less still, the widest are cut.
std::vector<double> ShareWidth(const std::vector<ColumnNeed>& needs, double room);

}  // namespace sentrel
