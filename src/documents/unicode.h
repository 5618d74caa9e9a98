#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sentrel {

/// The lines of a visible text (VisibleText), at least one. CR LF, CR and LF end a line: a text
/// that ends in one has no empty line behind it.
std::vector<std::string_view> LinesOf(std::string_view text);

/// Columns that one line of visible text takes on a terminal: 2 for wide letters and emoji, none
/// for combining marks.
std::size_t DisplayWidth(std::string_view line);

/// Cuts one line into pieces of at most `width` columns, after a blank where possible; the blank is
/// dropped. At least one piece.
std::vector<std::string_view> WrapLine(std::string_view line, std::size_t width);

/// The longest start of the text that has at most `most` UTF-16 code units and ends between
/// characters.
std::string_view FirstUtf16Units(std::string_view text, std::size_t most);

}  // namespace sentrel
