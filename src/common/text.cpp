#include "common/text.h"

#include <algorithm>
#include <span>

namespace sentrel {
namespace {

/// The longer one of two that begin alike comes first.
constexpr std::string_view kLineEnds[] = {"\r\n", "\n",   "\r",     "\v",     "\f",    "\x1C",
                                          "\x1D", "\x1E", "\u0085", "\u2028", "\u2029"};
/// The bytes that line ends begin with.
constexpr std::string_view kLineEndStarts = "\n\r\v\f\x1C\x1D\x1E\xC2\xE2";

constexpr std::string_view kWhiteSpace[] = {
    " ",      "\t",     "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004",
    "\u2005", "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000"};

/// Length of the one that the text begins with, 0 where it begins with none.
size_t LengthOfFirst(std::span<const std::string_view> candidates, std::string_view text) {
  const auto found = std::find_if(candidates.begin(), candidates.end(),
                                  [text](std::string_view c) { return text.starts_with(c); });
  return found == candidates.end() ? 0 : found->size();
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  for (auto end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
    pieces.push_back(text.substr(0, end));
    text.remove_prefix(end + separator.size());
  }
  pieces.push_back(text);
  return pieces;
}

bool IsPrintableAscii(std::string_view text) {
  // No early end, so that the compiler can look at many at once.
  unsigned char others = 0;
  for (const char c : text) others |= static_cast<unsigned char>(c - 0x20) >= 0x7F - 0x20 ? 1 : 0;
  return others == 0;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  size_t at = 0;
  while ((at = text.find_first_of(kLineEndStarts, at)) != std::string_view::npos) {
    const size_t length = LengthOfFirst(kLineEnds, text.substr(at));
    if (length == 0) {
      ++at;
      continue;
    }
    lines.push_back(text.substr(0, at));
    text.remove_prefix(at + length);
    at = 0;
  }
  lines.push_back(text);
  return lines;
}

bool IsBlank(std::string_view text) {
  while (const size_t length = LengthOfFirst(kWhiteSpace, text)) text.remove_prefix(length);
  return text.empty();
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  for (auto at = text.find(from); at != std::string_view::npos; at = text.find(from)) {
    result.append(text.substr(0, at)).append(to);
    text.remove_prefix(at + from.size());
  }
  return result.append(text);
}

std::string UpperCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return result;
}

std::optional<std::string> FromHex(std::string_view digits) {
  if (digits.size() % 2 != 0) return std::nullopt;
  std::string octets;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const int high = HexDigit(digits[i]);
    const int low = HexDigit(digits[i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    octets += static_cast<char>(high * 16 + low);
  }
  return octets;
}

}  // namespace sentrel
