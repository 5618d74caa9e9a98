#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>
#include <vector>

namespace sentrel::bench {

/// Of one value at least.
inline double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

/// Median of the ratios of values that were taken in the same turn.
inline double MedianRatio(const std::vector<double>& of, const std::vector<double>& to) {
  std::vector<double> ratios;
  std::transform(of.begin(), of.end(), to.begin(), std::back_inserter(ratios), std::divides<>());
  return Median(std::move(ratios));
}

}  // namespace sentrel::bench
