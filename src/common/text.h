#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sentrel {

/// The line end of every text of several lines.
inline constexpr std::string_view kCrLf = "\r\n";

/// Removes blanks (U+0020 only) from both ends.
std::string_view TrimBlanks(std::string_view text);

/// All pieces between the separators: one more than there are separators. The separator must not
/// be empty.
std::vector<std::string_view> Split(std::string_view text, std::string_view separator);

/// Whether every character is ASCII and none is a control character: one line, at little cost.
bool IsPrintableAscii(std::string_view text);

/// The lines of a UTF-8 text, at least one, whatever anyone takes for a line end: CR LF, LF, CR,
/// VT, FF, FS, GS, RS, NEL, LINE SEPARATOR, PARAGRAPH SEPARATOR (Unicode 5.8). What follows the
/// last line end is a line too.
std::vector<std::string_view> SplitLines(std::string_view text);

/// Whether the UTF-8 text is empty or holds nothing but white space.
bool IsBlank(std::string_view text);

/// Replaces every occurrence of `from` (not empty), left to right.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

/// Letters A to Z in upper case; everything else unchanged.
std::string UpperCase(std::string_view text);

/// The octets that pairs of hexadecimal digits, in upper case, stand for. Nothing for any other
/// text.
std::optional<std::string> FromHex(std::string_view digits);

}  // namespace sentrel
