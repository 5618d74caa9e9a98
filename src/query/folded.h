#pragma once

#include <string>
#include <string_view>

namespace sentrel::query {

/// The text in a form in which upper and lower case are one (Unicode case folding). What is no
/// UTF-8 is kept as it is.
std::string Folded(std::string_view text);

/// Whether the text holds the needle, which is folded already, in any case of letters.
bool Holds(std::string_view text, std::string_view foldedNeedle);

}  // namespace sentrel::query
