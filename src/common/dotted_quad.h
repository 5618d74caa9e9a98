#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sentrel {

/// The four parts of an IPv4 address in dotted decimal, in network order; nothing for any other
/// text. Leading zeros of a part mean nothing.
std::optional<std::array<std::uint8_t, 4>> DottedQuad(std::string_view text);

/// The other way round.
std::string DottedQuadText(std::span<const std::uint8_t, 4> address);

}  // namespace sentrel
