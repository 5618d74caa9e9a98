#include "query/pattern.h"

#include "query/folded.h"

namespace sentrel::query {

Pattern::Pattern(std::string_view text) : folded_(Folded(text)) {}

/// Goes back to the last "*" only: whatever an earlier one could still do, the last one can too.
bool Pattern::Fits(std::string_view text) const {
  const std::string folded = Folded(text);
  std::size_t at = 0;
  std::size_t inPattern = 0;
  std::size_t star = std::string::npos;
  std::size_t behindStar = 0;
  while (at < folded.size()) {
    if (inPattern < folded_.size() && folded_[inPattern] == '*') {
      star = inPattern++;
      behindStar = at;
    } else if (inPattern < folded_.size() && folded_[inPattern] == folded[at]) {
      ++inPattern;
      ++at;
    } else if (star != std::string::npos) {
      inPattern = star + 1;
      at = ++behindStar;
    } else {
      return false;
    }
  }
  while (inPattern < folded_.size() && folded_[inPattern] == '*') ++inPattern;
  return inPattern == folded_.size();
}

}  // namespace sentrel::query
