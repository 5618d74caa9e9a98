#include "trap/readable_value.h"

#include <algorithm>
#include <string_view>

#include "common/readable_octets.h"
#include "common/text.h"

namespace sentrel {
namespace {

constexpr std::string_view kHexMark = "0x";

}  // namespace

std::optional<std::string> ReadableValue(const Trap& trap, std::size_t binding) {
  if (!std::ranges::binary_search(trap.HexOctets, binding)) return std::nullopt;
  const auto octets = FromHex(std::string_view(trap.Values[binding]).substr(kHexMark.size()));
  return octets ? ReadableOctets(*octets) : std::nullopt;
}

}  // namespace sentrel
