#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sentrel {

/// One thing worth knowing. Plain UTF-8; `text` may have several paragraphs, parted by empty lines.
struct Tip {
  std::string title;
  std::string text;
};

/// Reads tips from a text: between two tips stands a line that is only "%"; the first line of a tip
/// is its title; lines that begin with "#" are left out. A tip without a text is left out.
std::vector<Tip> ReadTips(std::string_view text);

/// Tips in a row that has no end: behind the last comes the first again.
class TipBook {
 public:
  /// At least one tip. Opens at a place of which only the remainder by the number of tips counts.
  TipBook(std::vector<Tip> tips, unsigned place);

  const Tip& Current() const { return tips_[place_]; }
  void Next() { place_ = (place_ + 1) % tips_.size(); }
  void Previous() { place_ = (place_ + tips_.size() - 1) % tips_.size(); }

 private:
  std::vector<Tip> tips_;
  size_t place_;
};

/// A number that is one higher each day, for the tip of that day.
unsigned DayNumber(int year, int month, int day);

}  // namespace sentrel
