#include "settings/ip_functions.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "common/dotted_quad.h"

namespace sentrel {
namespace {

using FourParts = std::array<std::string_view, 4>;

/// The first four parts between the dots; false if there are fewer.
bool SplitParts(std::string_view text, FourParts& parts) {
  for (std::string_view& part : parts) {
    const auto dot = text.find('.');
    part = text.substr(0, dot);
    if (dot == std::string_view::npos) return &part == &parts.back();
    text.remove_prefix(dot + 1);
  }
  return true;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string KeepAddressCharacters(std::string_view text) {
  std::string kept;
  std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
               [](char c) { return c == '.' || IsDigit(c); });
  return kept;
}

template <typename Number>
Number ValueOf(std::string_view digits) {
  Number value = 0;
  for (const char digit : digits) value = value * 10 + static_cast<Number>(digit - '0');
  return value;
}

std::uint32_t ValueOfHex(std::string_view digits) {
  std::uint32_t value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  return value;
}

std::uint32_t Bits(std::string_view address) {
  return static_cast<std::uint32_t>(IPAddressToLong(address));
}

std::string FromBits(std::uint32_t bits) {
  return LongToIPAddress(static_cast<std::int32_t>(bits));
}

std::array<std::string, 33> MakeMasks() {
  std::array<std::string, 33> masks;
  for (std::size_t length = 0; length < masks.size(); ++length)
    masks[length] = FromBits(static_cast<std::uint32_t>(0xFFFFFFFF00000000ULL >> length));
  return masks;
}

/// Index: the prefix length.
const std::array<std::string, 33>& Masks() {
  static const auto masks = MakeMasks();
  return masks;
}

}  // namespace

bool IsIPAddress(std::string_view address) {
  return DottedQuad(address).has_value();
}

bool IsSubnetMask(std::string_view mask) {
  return std::find(Masks().begin(), Masks().end(), mask) != Masks().end();
}

std::string MaskOfPrefixLength(std::int16_t prefix) {
  return Masks()[static_cast<std::size_t>(std::clamp<std::int16_t>(prefix, 0, 32))];
}

double IPAddressToDouble(std::string_view address) {
  const std::string kept = KeepAddressCharacters(address);
  FourParts parts;
  if (!SplitParts(kept, parts)) return 0;
  double sum = 0;
  for (const std::string_view part : parts) sum = sum * 1000 + ValueOf<double>(part);
  return sum;
}

std::string IPAddressToHex(std::string_view address) {
  const std::string kept = KeepAddressCharacters(address);
  FourParts parts;
  if (!SplitParts(kept, parts)) return {};
  std::string hex;
  for (const std::string_view part : parts)
    hex += fmt::format("{:02X}", ValueOf<std::uint32_t>(part) & 0xFF);
  return hex;
}

std::string HexToIPAddress(std::string_view hex) {
  const std::string digits = fmt::format("00000000{}", hex);
  const std::string_view last = std::string_view(digits).substr(digits.size() - 8);
  return fmt::format("{}.{}.{}.{}", ValueOfHex(last.substr(0, 2)), ValueOfHex(last.substr(2, 2)),
                     ValueOfHex(last.substr(4, 2)), ValueOfHex(last.substr(6, 2)));
}

std::int32_t IPAddressToLong(std::string_view address) {
  return static_cast<std::int32_t>(ValueOfHex(IPAddressToHex(address)));
}

std::string LongToIPAddress(std::int32_t value) {
  return HexToIPAddress(fmt::format("{:X}", static_cast<std::uint32_t>(value)));
}

std::string SubnetOfAddress(std::string_view address, std::string_view mask) {
  return FromBits(Bits(address) & Bits(mask));
}

std::string LastAddressOfSubnet(std::string_view subnet, std::string_view mask) {
  return FromBits(Bits(subnet) | ~Bits(mask));
}

}  // namespace sentrel
