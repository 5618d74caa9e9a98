#include "snmp/octet_text.h"

#include <string_view>

#include "common/utf8.h"

namespace sentrel {
namespace {

using Octets = std::span<const std::uint8_t>;

bool IsText(Octets octets) {
  std::string_view text(reinterpret_cast<const char*>(octets.data()), octets.size());
  while (!text.empty()) {
    const auto [code, length] = FirstCharacter(text);
    if (length == 0 || !IsPrintable(code)) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string HexText(Octets octets) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text = "0x";
  text.reserve(2 + 2 * octets.size());
  for (const std::uint8_t octet : octets) {
    text += kDigits[octet >> 4];
    text += kDigits[octet & 0xF];
  }
  return text;
}

}  // namespace

void OctetText(Octets octets, std::string& text) {
  if (IsText(octets)) {
    text.assign(octets.begin(), octets.end());
  } else {
    text = HexText(octets);
  }
}

std::string OctetText(Octets octets) {
  std::string text;
  OctetText(octets, text);
  return text;
}

}  // namespace sentrel
