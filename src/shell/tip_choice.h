#pragma once

#include <vector>

#include "common/dates.h"
#include "shell/tip_file.h"

namespace sentrel {

/// Which tip is shown: at first that of the day, which is the next one on each new day, then what
/// the user turns to. The first tip follows the last.
class TipChoice {
 public:
  /// At least one tip.
  TipChoice(std::vector<Tip> tips, const LocalTime& today);

  const Tip& Current() const { return tips_[place_]; }
  void Next() { place_ = (place_ + 1) % tips_.size(); }
  void Previous() { place_ = (place_ + tips_.size() - 1) % tips_.size(); }

 private:
  std::vector<Tip> tips_;
  size_t place_;
};

}  // namespace sentrel
