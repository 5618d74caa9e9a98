#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// IPv4 addresses as dotted text ("192.168.1.10"), hexadecimal text ("C0A8010A"), signed 32-bit
// integer with the first part in the top byte (-1062731510), and decimal-coded double: the four
// parts side by side, three decimal digits a part (192168001010). Doubles order as addresses do.
// Nothing here throws.

namespace sentrel {

/// Four parts of plain decimal digits from 0 to 255; leading zeros mean nothing. No other character
/// is allowed.
bool IsIPAddress(std::string_view address);

/// A contiguous mask in dotted text without leading zeros.
bool IsSubnetMask(std::string_view mask);

/// The mask with so many leading one bits; a number outside 0 to 32 counts as the nearer end.
std::string MaskOfPrefixLength(std::int16_t prefix);

/// Characters other than digits and dots are dropped, a fifth part is ignored. 0 for a text of
/// fewer than four parts.
double IPAddressToDouble(std::string_view address);

/// Eight upper-case digits, or "" for a text of fewer than four parts. Reads as IPAddressToDouble.
std::string IPAddressToHex(std::string_view address);

/// Counts the last eight digits of the text, padded with zeros on the left.
std::string HexToIPAddress(std::string_view hex);

/// 0 for a text of fewer than four parts.
std::int32_t IPAddressToLong(std::string_view address);
std::string LongToIPAddress(std::int32_t value);

/// The address with its host bits cleared.
std::string SubnetOfAddress(std::string_view address, std::string_view mask);

/// The subnet with all host bits set.
std::string LastAddressOfSubnet(std::string_view subnet, std::string_view mask);

}  // namespace sentrel
