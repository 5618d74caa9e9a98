#pragma once

#include <string>
#include <string_view>

namespace sentrel {

/// The text as it may be shown anywhere: well-formed UTF-8 in which every character can be seen.
/// What would hide, reorder or break text is replaced by what tells of it: a control character by
/// its picture (U+2400 and on), any other character that cannot be seen by "<U+202E>", an octet
/// that is no UTF-8 by U+FFFD. TAB, CR and LF stay.
///
/// Not seen are the characters that Unicode calls format characters or default ignorable (zero
/// widths, directional marks, overrides and isolates, soft hyphen, fillers, variation selectors,
/// tags), line and paragraph separators, noncharacters and U+FFFC. Some of them stay where a word
/// cannot be written without them: U+200C and U+200D between two letters of the Arabic, Indic and
/// other scripts that join letters, U+200D between two emoji, U+FE0E and U+FE0F behind a symbol,
/// and the Mongolian selectors behind a Mongolian letter. Flags made of tags do not.
std::string VisibleText(std::string text);

/// The same for a JSON document: what cannot be seen becomes "\u202E", and nothing else is
/// changed, so that the document says what it said.
std::string VisibleJson(std::string_view document);

}  // namespace sentrel
