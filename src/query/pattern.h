#pragma once

#include <string>
#include <string_view>

namespace sentrel::query {

/// A text in which "*" stands for any characters, also none. No case counts.
class Pattern {
 public:
  explicit Pattern(std::string_view text);
  /// Whether it fits the whole text. Takes time in proportion to both lengths multiplied at worst.
  bool Fits(std::string_view text) const;

 private:
  std::string folded_;
};

}  // namespace sentrel::query
