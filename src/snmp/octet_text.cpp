#include "snmp/octet_text.h"

namespace sentrel {
namespace {

using Octets = std::span<const std::uint8_t>;

constexpr bool IsPlain(std::uint32_t character) {
  if (character < 0x20) return character == '\t' || character == '\r' || character == '\n';
  return character < 0x7F || character > 0x9F;
}

/// Length of the well-formed sequence at the start (RFC 3629), 0 where there is none or where it
/// is a control character.
std::size_t PlainSequence(Octets octets) {
  const std::uint8_t lead = octets[0];
  if (lead < 0x80) return IsPlain(lead) ? 1 : 0;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (lead < 0xC2 || lead > 0xF4 || octets.size() < length) return 0;
  std::uint32_t character = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((octets[i] & 0xC0) != 0x80) return 0;
    character = character << 6 | (octets[i] & 0x3FU);
  }
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  const bool valid = character >= kSmallest[length] && character <= 0x10FFFF && !surrogate;
  return valid && IsPlain(character) ? length : 0;
}

bool IsText(Octets octets) {
  while (!octets.empty()) {
    const std::size_t length = PlainSequence(octets);
    if (length == 0) return false;
    octets = octets.subspan(length);
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
