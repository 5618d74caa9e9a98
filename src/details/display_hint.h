#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sentrel {

// Values as the DISPLAY-HINT of their type has them (RFC 2579, section 3.1). Nothing where the hint
// breaks the rules or is one for values of another type. Hint and value may be anything.

/// For integers: "d", "d-2", "x", "o", "b".
std::optional<std::string> IntegerByHint(std::string_view hint, std::int64_t number);

/// For octets: "1x:", "255a", "2d-1d-1d,1d:1d:1d.1d,1a1d:1d". A hexadecimal number has two digits
/// for each octet. What formats "a" and "t" take over may be no UTF-8. No number has more than
/// eight octets, except hexadecimal ones.
std::optional<std::string> OctetsByHint(std::string_view hint,
                                        std::span<const std::uint8_t> octets);

}  // namespace sentrel
