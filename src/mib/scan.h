#pragma once

#include <bit>
#include <cstddef>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// The two loops through which every byte of a module file passes, in steps of 16 bytes where the
/// processor has them.
namespace sentrel::mib::scan {

/// Whatever is no visible ASCII character.
constexpr bool IsBlank(char c) {
  return c <= ' ' || c == 0x7F;
}

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// What a word may hold besides dashes.
constexpr bool IsWordPart(char c) {
  const char lower = static_cast<char>(c | 0x20);
  return (lower >= 'a' && lower <= 'z') || IsDigit(c) || c == '_';
}

#ifdef __SSE2__

using Block = __m128i;
inline constexpr size_t kBlock = sizeof(Block);

inline Block Load(const char* at) {
  return _mm_loadu_si128(reinterpret_cast<const Block*>(at));
}
inline Block IsBetween(Block bytes, char least, char most) {
  return _mm_and_si128(_mm_cmpgt_epi8(bytes, _mm_set1_epi8(static_cast<char>(least - 1))),
                       _mm_cmplt_epi8(bytes, _mm_set1_epi8(static_cast<char>(most + 1))));
}
inline Block Is(Block bytes, char c) {
  return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c));
}
inline unsigned Bits(Block mask) {
  return static_cast<unsigned>(_mm_movemask_epi8(mask));
}

#endif

/// The position of the first byte from `at` on that is no blank, or the end.
inline size_t BlankEnd(std::string_view text, size_t at) {
#ifdef __SSE2__
  for (; at + kBlock <= text.size(); at += kBlock) {
    const unsigned visible = Bits(IsBetween(Load(text.data() + at), '!', '~'));
    if (visible != 0) return at + static_cast<size_t>(std::countr_zero(visible));
  }
#endif
  while (at < text.size() && IsBlank(text[at])) ++at;
  return at;
}

/// The end of a word that begins at `at`: before "--", or else before the first character that is
/// neither a part of a word nor a dash.
inline size_t WordEnd(std::string_view text, size_t at) {
#ifdef __SSE2__
  // A block begins with the last byte of the one before it, so that no "--" lies across two.
  for (; at + kBlock <= text.size(); at += kBlock - 1) {
    const Block bytes = Load(text.data() + at);
    const Block letters = IsBetween(_mm_or_si128(bytes, _mm_set1_epi8(0x20)), 'a', 'z');
    const Block others = _mm_or_si128(IsBetween(bytes, '0', '9'), Is(bytes, '_'));
    const unsigned parts = Bits(_mm_or_si128(letters, others));
    const unsigned dashes = Bits(Is(bytes, '-'));
    const unsigned ends = (~(parts | dashes) & 0xFFFF) | (dashes & (dashes >> 1));
    if (ends != 0) return at + static_cast<size_t>(std::countr_zero(ends));
  }
#endif
  for (; at < text.size(); ++at) {
    if (IsWordPart(text[at])) continue;
    if (text[at] != '-' || (at + 1 < text.size() && text[at + 1] == '-')) break;
  }
  return at;
}

}  // namespace sentrel::mib::scan
