#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace sentrel {

/// The octets unchanged where they are UTF-8 text without control characters other than TAB,
/// CR and LF; else "0x" and two upper-case hexadecimal digits for each. The octets can be recovered
/// from it; what else they may mean is for those who show them (ReadableOctets).
std::string OctetText(std::span<const std::uint8_t> octets);

/// The same, replacing the content of the text.
void OctetText(std::span<const std::uint8_t> octets, std::string& text);

}  // namespace sentrel
