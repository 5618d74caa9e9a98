#pragma once

#include <string_view>
#include <vector>

namespace sentrel {

/// The words of each line that has any. Words are separated by any of the blanks, lines by LF. They
/// point into the text.
std::vector<std::vector<std::string_view>> LinesOfWords(std::string_view text,
                                                        std::string_view blanks);

}  // namespace sentrel
