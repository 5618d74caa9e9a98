#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sentrel {

/// One thing worth knowing. Plain UTF-8; `text` may have several paragraphs, separated by empty
/// lines.
struct Tip {
  std::string title;
  std::string text;
};

/// Reads tips from a text: two tips are separated by a line that is only "%"; the first line of a
/// tip is its title; lines that begin with "#" are left out. A tip without a text is left out.
std::vector<Tip> ReadTips(std::string_view text);

}  // namespace sentrel
