#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace sentrel {

struct Utf8Character {
  char32_t code = 0;
  /// In octets; 0 where the text does not begin with a character.
  std::size_t length = 0;
};

/// The character at the start of a text that is not empty, if the text is well-formed there
/// (RFC 3629).
inline Utf8Character FirstCharacter(std::string_view text) {
  const auto lead = static_cast<std::uint8_t>(text[0]);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return {};
  char32_t code = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto octet = static_cast<std::uint8_t>(text[i]);
    if ((octet & 0xC0) != 0x80) return {};
    code = code << 6 | (octet & 0x3FU);
  }
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < kSmallest[length] || code > 0x10FFFF || surrogate) return {};
  return {code, length};
}

/// Whether the character may be part of a text: any but control characters other than TAB, CR and
/// LF.
constexpr bool IsPrintable(char32_t code) {
  if (code < 0x20) return code == '\t' || code == '\r' || code == '\n';
  return code < 0x7F || code > 0x9F;
}

/// `code` is no surrogate and at most 0x10FFFF.
inline void AppendUtf8(char32_t code, std::string& text) {
  const auto append = [&](char32_t octet) { text += static_cast<char>(octet); };
  if (code < 0x80) return append(code);
  if (code < 0x800) {
    append(0xC0 | code >> 6);
  } else {
    if (code < 0x10000) {
      append(0xE0 | code >> 12);
    } else {
      append(0xF0 | code >> 18);
      append(0x80 | (code >> 12 & 0x3F));
    }
    append(0x80 | (code >> 6 & 0x3F));
  }
  append(0x80 | (code & 0x3F));
}

}  // namespace sentrel
