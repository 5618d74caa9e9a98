#include "desktop/export/column_widths.h"

#include <algorithm>
#include <numeric>

namespace sentrel {
namespace {

using Bound = double ColumnNeed::*;

double Sum(const std::vector<double>& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0.0);
}

/// All columns are equally wide, except where their bounds forbid it.
std::vector<double> Leveled(const std::vector<ColumnNeed>& needs, Bound low, Bound high,
                            double level) {
  std::vector<double> widths;
  widths.reserve(needs.size());
  for (const ColumnNeed& need : needs) widths.push_back(std::clamp(level, need.*low, need.*high));
  return widths;
}

/// The room must lie between the sums of the bounds.
std::vector<double> Filled(const std::vector<ColumnNeed>& needs, Bound low, Bound high,
                           double room) {
  constexpr int kSteps = 40;  // finer than any device
  double under = 0;
  double over = room;
  for (int step = 0; step < kSteps; ++step) {
    const double level = (under + over) / 2;
    (Sum(Leveled(needs, low, high, level)) > room ? over : under) = level;
  }
  return Leveled(needs, low, high, under);
}

}  // namespace

ColumnNeed NeedOf(double title, double longestWord, std::vector<double> lines) {
  ColumnNeed need{longestWord, longestWord, title};
  if (lines.empty()) return need;
  need.most = std::max(title, *std::max_element(lines.begin(), lines.end()));
  const auto ninth = lines.begin() + static_cast<std::ptrdiff_t>((lines.size() - 1) * 9 / 10);
  std::nth_element(lines.begin(), ninth, lines.end());
  need.usual = std::max(longestWord, *ninth);
  return need;
}

std::vector<double> ShareWidth(const std::vector<ColumnNeed>& needs, double room) {
  const auto sum = [&](Bound bound) { return Sum(Leveled(needs, bound, bound, 0)); };
  if (needs.empty()) return {};
  if (sum(&ColumnNeed::most) <= room) {
    std::vector<double> widths = Leveled(needs, &ColumnNeed::most, &ColumnNeed::most, 0);
    widths.back() += room - Sum(widths);
    return widths;
  }
  if (sum(&ColumnNeed::usual) <= room) {
    return Filled(needs, &ColumnNeed::usual, &ColumnNeed::most, room);
  }
  if (sum(&ColumnNeed::least) <= room) {
    return Filled(needs, &ColumnNeed::least, &ColumnNeed::usual, room);
  }
  return std::vector<double>(needs.size(), room / static_cast<double>(needs.size()));
}

}  // namespace sentrel
