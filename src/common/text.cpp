#include "common/text.h"

#include <algorithm>

namespace sentrel {
namespace {

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
