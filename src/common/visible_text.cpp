#include "common/visible_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "common/utf8.h"

namespace sentrel {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kControlPictures = 0x2400;  // U+2400 shows 0x00, U+2401 shows 0x01, ...
constexpr char32_t kDelete = 0x7F;
constexpr char32_t kDeletePicture = 0x2421;

constexpr char32_t kNonJoiner = 0x200C;
constexpr char32_t kJoiner = 0x200D;
constexpr char32_t kTextStyle = 0xFE0E;
constexpr char32_t kEmojiStyle = 0xFE0F;
constexpr char32_t kKeycap = 0x20E3;

struct Range {
  char32_t first;
  char32_t last;
};

/// In order. Control characters and the last two of each plane, which are no characters, are not
/// among them.
constexpr Range kUnseen[] = {
    {0x00AD, 0x00AD},    // soft hyphen
    {0x034F, 0x034F},    // combining grapheme joiner
    {0x061C, 0x061C},    // Arabic letter mark
    {0x115F, 0x1160},    // Hangul fillers
    {0x17B4, 0x17B5},    // Khmer inherent vowels
    {0x180B, 0x180F},    // Mongolian selectors
    {0x200B, 0x200F},    // zero widths, directional marks
    {0x2028, 0x202E},    // separators of lines, directional embeddings and overrides
    {0x2060, 0x206F},    // word joiner, invisible operators, directional isolates
    {0x2800, 0x2800},    // blank Braille pattern
    {0x3164, 0x3164},    // Hangul filler
    {0xFDD0, 0xFDEF},    // noncharacters
    {0xFE00, 0xFE0F},    // variation selectors
    {0xFEFF, 0xFEFF},    // byte order mark
    {0xFFA0, 0xFFA0},    // Hangul filler
    {0xFFF0, 0xFFFC},    // annotations, stand-in for an object
    {0x13430, 0x13440},  // hieroglyph joiners
    {0x1BCA0, 0x1BCA3},  // shorthand
    {0x1D173, 0x1D17A},  // music
    {0xE0000, 0xE0FFF},  // tags, variation selectors
};

/// In order: the letters and marks of the scripts in which a joiner decides on how they are joined.
/// None of them is unseen.
constexpr Range kJoinedScripts[] = {
    {0x0620, 0x0DFF},    // Arabic to Sinhala
    {0x1000, 0x109F},    // Myanmar
    {0x1780, 0x17B3},    // Khmer
    {0x17B6, 0x180A},    // Khmer, Mongolian
    {0x1810, 0x18AA},    // Mongolian
    {0x1A20, 0x1BFF},    // Tai Tham to Batak
    {0xA840, 0xA9FF},    // Phags-pa to Javanese
    {0xAA60, 0xAAFF},    // Myanmar to Meetei Mayek
    {0xFB50, 0xFDCF},    // Arabic forms
    {0xFE70, 0xFEFC},    // Arabic forms
    {0x10A00, 0x10EFF},  // Kharoshthi to Arabic
    {0x11000, 0x11FFF},  // Brahmi to Tamil
    {0x1E900, 0x1E95F},  // Adlam
};

constexpr Range kMongolian[] = {{0x1820, 0x18AA}};
constexpr Range kMongolianSelectors[] = {{0x180B, 0x180F}};

/// In order: what may be an emoji or be shown like one.
constexpr Range kSymbols[] = {{0x00A9, 0x00A9}, {0x00AE, 0x00AE}, {0x203C, 0x203C},
                              {0x2049, 0x2049}, {0x2122, 0x2122}, {0x2139, 0x2139},
                              {0x2190, 0x27FF}, {0x2801, 0x2BFF}, {0x3030, 0x3030},
                              {0x303D, 0x303D}, {0x3297, 0x3299}, {0x1F000, 0x1FAFF}};

bool Has(std::span<const Range> ranges, char32_t c) {
  const auto behind = std::upper_bound(ranges.begin(), ranges.end(), c,
                                       [](char32_t wanted, Range r) { return wanted < r.first; });
  return behind != ranges.begin() && c <= std::prev(behind)->last;
}

bool IsControl(char32_t c) {
  return c < 0x20 || (c >= kDelete && c < 0xA0);
}

bool IsUnseen(char32_t c) {
  if (c == U'\t' || c == U'\r' || c == U'\n') return false;
  return IsControl(c) || (c & 0xFFFE) == 0xFFFE || Has(kUnseen, c);
}

bool IsKeyOfKeycap(char32_t c) {
  return (c >= U'0' && c <= U'9') || c == U'#' || c == U'*';
}

/// Whether a word needs the character, which is not seen itself, between these two.
bool IsNeeded(char32_t before, char32_t c, char32_t after) {
  if (c == kTextStyle || c == kEmojiStyle) {
    return Has(kSymbols, before) || (IsKeyOfKeycap(before) && after == kKeycap);
  }
  if (Has(kMongolianSelectors, c)) return Has(kMongolian, before);
  if (c != kJoiner && c != kNonJoiner) return false;
  if (Has(kJoinedScripts, before) && Has(kJoinedScripts, after)) return true;
  const bool behindEmoji = Has(kSymbols, before) || before == kEmojiStyle;
  return c == kJoiner && behindEmoji && Has(kSymbols, after);
}

void AppendSign(char32_t c, std::string& text) {
  if (c < 0x20) return AppendUtf8(kControlPictures + c, text);
  if (c == kDelete) return AppendUtf8(kDeletePicture, text);
  fmt::format_to(std::back_inserter(text), "<U+{:04X}>", static_cast<std::uint32_t>(c));
}

/// RFC 8259 section 7: two escapes for what lies beyond U+FFFF.
void AppendJsonEscape(char32_t c, std::string& text) {
  const auto code = static_cast<std::uint32_t>(c);
  if (code <= 0xFFFF) {
    fmt::format_to(std::back_inserter(text), "\\u{:04X}", code);
  } else {
    fmt::format_to(std::back_inserter(text), "\\u{:04X}\\u{:04X}",
                   0xD800 + ((code - 0x10000) >> 10), 0xDC00 + (code & 0x3FF));
  }
}

/// Most texts are. Looks at the whole text without a branch, so that many octets are taken at once.
bool IsPlain(std::string_view text) {
  std::uint8_t others = 0;
  for (const char c : text) {
    const auto octet = static_cast<std::uint8_t>(c);
    const std::uint8_t unusual = (octet < 0x20) | (octet >= kDelete);
    others |= unusual & (octet != '\t') & (octet != '\r') & (octet != '\n');
  }
  return others == 0;
}

std::string WithSigns(std::string_view text, void (*appendSign)(char32_t, std::string&)) {
  std::string result;
  result.reserve(text.size());
  char32_t before = 0;
  while (!text.empty()) {
    const auto [code, length] = FirstCharacter(text);
    const std::string_view character = text.substr(0, std::max<size_t>(length, 1));
    text.remove_prefix(character.size());
    const char32_t after = text.empty() ? 0 : FirstCharacter(text).code;
    if (length == 0) {
      AppendUtf8(before = kReplacement, result);
    } else if (IsUnseen(code) && !IsNeeded(before, code, after)) {
      appendSign(code, result);
      before = 0;
    } else {
      result.append(character);
      before = code;
    }
  }
  return result;
}

}  // namespace

std::string VisibleText(std::string text) {
  return IsPlain(text) ? std::move(text) : WithSigns(text, AppendSign);
}

std::string VisibleJson(std::string_view document) {
  return WithSigns(document, AppendJsonEscape);
}

}  // namespace sentrel
