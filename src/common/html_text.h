#pragma once

#include <string>
#include <string_view>

namespace sentrel {

/// The text as HTML shows it: none of its characters is taken for markup, in quoted attributes
/// neither. Line breaks stay as they are.
std::string HtmlText(std::string_view text);

}  // namespace sentrel
