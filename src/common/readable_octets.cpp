#include "common/readable_octets.h"

#include <algorithm>

#include "common/utf8.h"

namespace sentrel {
namespace {

constexpr size_t kShortestWord = 2;
constexpr size_t kShortestText = 4;
constexpr size_t kShortestLatin1 = 5;
/// Of ISO 8859-1: what is no longer may be an address, and has to be a single word.
constexpr size_t kLongestAddress = 8;

bool IsSmallAscii(char32_t c) {
  return c >= U'a' && c <= U'z';
}

bool IsCapitalAscii(char32_t c) {
  return c >= U'A' && c <= U'Z';
}

bool IsAsciiLetter(char32_t c) {
  return IsSmallAscii(c) || IsCapitalAscii(c);
}

bool IsDigit(char32_t c) {
  return c >= U'0' && c <= U'9';
}

bool IsSmall(char32_t c) {
  return IsSmallAscii(c) || (c >= 0xDF && c <= 0xFF && c != 0xF7);
}

bool IsCapital(char32_t c) {
  return IsCapitalAscii(c) || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
}

bool IsLetter(char32_t c) {
  return IsSmall(c) || IsCapital(c);
}

/// Nothing where an octet is no UTF-8.
std::optional<std::u32string> FromUtf8(std::string_view octets) {
  std::u32string text;
  while (!octets.empty()) {
    const auto [code, length] = FirstCharacter(octets);
    if (length == 0) return std::nullopt;
    text += code;
    octets.remove_prefix(length);
  }
  return text;
}

std::u32string FromLatin1(std::string_view octets) {
  std::u32string text;
  for (const char c : octets) text += static_cast<std::uint8_t>(c);
  return text;
}

std::string ToUtf8(std::u32string_view text) {
  std::string octets;
  for (const char32_t c : text) AppendUtf8(c, octets);
  return octets;
}

/// Of letters alone, in a case that words have.
bool IsWord(std::u32string_view text) {
  if (!std::all_of(text.begin(), text.end(), IsLetter)) return false;
  const auto rest = text.substr(std::min<size_t>(1, text.size()));
  return std::all_of(rest.begin(), rest.end(), IsSmall) ||
         std::all_of(text.begin(), text.end(), [](char32_t c) { return !IsSmall(c) || c == 0xDF; });
}

/// Every run of letters that holds one beyond ASCII.
bool AreWords(std::u32string_view text) {
  while (!text.empty()) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsLetter);
    const auto word = text.substr(0, static_cast<size_t>(end - text.begin()));
    if (!std::all_of(word.begin(), word.end(), IsAsciiLetter) && !IsWord(word)) return false;
    text.remove_prefix(std::min(word.size() + 1, text.size()));
  }
  return true;
}

/// Whether octets beyond ASCII are next to each other in a way that no word has.
bool HasClusters(std::u32string_view text) {
  size_t run = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    run = text[i] < 0x80 ? 0 : run + 1;
    if (run > 2) return true;
    if (run == 2 && !(IsLetter(text[i - 1]) && IsLetter(text[i]))) return true;
  }
  return false;
}

bool IsLikelyLatin1(std::u32string_view text) {
  if (text.size() < kShortestLatin1 || HasClusters(text) || !AreWords(text)) return false;
  const auto count = [&](auto test) { return std::count_if(text.begin(), text.end(), test); };
  const auto beyondAscii = count([](char32_t c) { return c >= 0x80; });
  if (text.size() <= kLongestAddress) return beyondAscii == 1 && IsWord(text);
  const auto letters = count(IsAsciiLetter);
  const auto usual = letters + count(IsDigit) + count([](char32_t c) { return c == U' '; });
  return letters >= 2 * beyondAscii && 3 * static_cast<size_t>(usual) >= 2 * text.size();
}

bool IsLikelyTerminated(std::u32string_view text, size_t octets) {
  const auto isPlain = [](char32_t c) { return IsAsciiLetter(c) || IsDigit(c); };
  if (octets >= kShortestText) return std::any_of(text.begin(), text.end(), isPlain);
  return octets >= kShortestWord && IsWord(text) &&
         std::all_of(text.begin(), text.end(), IsAsciiLetter);
}

bool IsPrintableText(std::u32string_view text) {
  return std::all_of(text.begin(), text.end(), IsPrintable);
}

}  // namespace

std::optional<std::string> ReadableOctets(std::string_view octets) {
  const bool terminated = octets.ends_with('\0');
  if (terminated) octets.remove_suffix(1);
  if (const auto text = FromUtf8(octets)) {
    const bool likely = terminated && IsPrintableText(*text);
    if (!likely || !IsLikelyTerminated(*text, octets.size())) return std::nullopt;
    return std::string(octets);
  }
  const std::u32string text = FromLatin1(octets);
  if (!IsPrintableText(text) || !IsLikelyLatin1(text)) return std::nullopt;
  return ToUtf8(text);
}

}  // namespace sentrel
