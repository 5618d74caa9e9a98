#include "details/byte_lines.h"

#include <algorithm>
#include <cstdint>

namespace sentrel {
namespace {

constexpr std::size_t kOffsetDigits = 4;
constexpr std::size_t kDigitsAt = kOffsetDigits + 2;
constexpr std::size_t kTextAt = kDigitsAt + 3 * kBytesOfLine + 1;
/// With the line end.
constexpr std::size_t kLine = kTextAt + kBytesOfLine + 1;

void PutHex(std::size_t number, std::size_t digits, char* place) {
  for (; digits > 0; --digits, number >>= 4) place[digits - 1] = "0123456789abcdef"[number & 0xF];
}

}  // namespace

std::string ByteLines(std::string_view bytes) {
  const std::size_t lines = (bytes.size() + kBytesOfLine - 1) / kBytesOfLine;
  std::string text(lines * kLine, ' ');
  for (std::size_t line = 0; line < lines; ++line) {
    PutHex(line * kBytesOfLine, kOffsetDigits, text.data() + line * kLine);
    text[line * kLine + kLine - 1] = '\n';
  }
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char c = bytes[i];
    PutHex(static_cast<std::uint8_t>(c), 2, text.data() + DigitsOf(i));
    text[CharacterOf(i)] = c >= ' ' && c <= '~' ? c : '.';
  }
  if (!text.empty()) text.pop_back();
  return text;
}

std::size_t DigitsOf(std::size_t byte) {
  return byte / kBytesOfLine * kLine + kDigitsAt + 3 * (byte % kBytesOfLine);
}

std::size_t CharacterOf(std::size_t byte) {
  return byte / kBytesOfLine * kLine + kTextAt + byte % kBytesOfLine;
}

std::optional<std::size_t> ByteAt(std::size_t place) {
  const std::size_t column = place % kLine;
  const std::size_t first = place / kLine * kBytesOfLine;
  if (column < kDigitsAt) return std::nullopt;
  if (column >= kTextAt) return first + std::min(column - kTextAt, kBytesOfLine - 1);
  return first + std::min((column - kDigitsAt) / 3, kBytesOfLine - 1);
}

}  // namespace sentrel
