#include "common/dotted_quad.h"

#include <charconv>
#include <vector>

#include "common/text.h"

namespace sentrel {

std::optional<std::array<std::uint8_t, 4>> DottedQuad(std::string_view text) {
  std::array<std::uint8_t, 4> address;
  const std::vector<std::string_view> parts = Split(text, ".");
  if (parts.size() != address.size()) return std::nullopt;
  for (std::size_t i = 0; i < address.size(); ++i) {
    const char* const end = parts[i].data() + parts[i].size();
    const auto [stop, error] = std::from_chars(parts[i].data(), end, address[i]);
    if (error != std::errc() || stop != end) return std::nullopt;
  }
  return address;
}

std::string DottedQuadText(std::span<const std::uint8_t, 4> address) {
  std::array<char, sizeof "255.255.255.255"> text;
  char* end = text.data();
  for (const std::uint8_t part : address) {
    if (end != text.data()) *end++ = '.';
    end = std::to_chars(end, text.data() + text.size(), part).ptr;
  }
  return {text.data(), end};
}

}  // namespace sentrel
