#include "snmp/odd_values.h"

#include <algorithm>
#include <array>
#include <string>

#include "snmp/binding.h"
#include "snmp/notification_pdu.h"
#include "snmp/value_reader.h"

namespace sentrel {
namespace {

using ber::Bytes;
using Writable = std::span<std::uint8_t>;

/// Of tag and length, in the length that the library takes with all tags.
constexpr std::size_t kUsualHeader = 6;

/// Makes one element of all the bytes, of which there are 2 to 65,539, and returns its content.
Writable MakeElement(ber::Tag tag, Writable bytes) {
  bytes[0] = tag;
  const std::size_t size = bytes.size();
  if (size < 2 + 0x80) {
    bytes[1] = static_cast<std::uint8_t>(size - 2);
    return bytes.subspan(2);
  }
  bytes[1] = 0x82;
  bytes[2] = static_cast<std::uint8_t>((size - 4) >> 8);
  bytes[3] = static_cast<std::uint8_t>(size - 4);
  return bytes.subspan(4);
}

/// The same for a binding, unless the bytes are too few for one.
void MakeBinding(Writable bytes) {
  constexpr std::array<std::uint8_t, 3> kName = {ber::kOid, 1, 0};
  constexpr std::size_t kSmallest = 7;
  if (bytes.size() < kSmallest) return;
  const Writable content = MakeElement(ber::kSequence, bytes);
  std::ranges::copy(kName, content.begin());
  MakeElement(ber::kOctets, content.subspan(kName.size()));
}

/// The library looks into an Opaque for a number and refuses what only begins like one, and a BIT
/// STRING that does not even tell how many of its bits are unused.
bool IsRefused(const ber::Element& value, const std::string& text) {
  const ber::Bytes content = value.content;
  if (value.FirstTag() == ber::kBitString) return content.empty();
  const bool likeNumber = value.FirstTag() == ber::kOpaque && content.size() >= 2 &&
                          content[0] == 0x9F && (content[1] & 0xF0) == 0x70;
  return likeNumber && text.starts_with("0x");
}

bool IsUsual(Bytes bytes) {
  Bytes rest = bytes;
  const auto value = ber::TakeElement(rest);
  std::string text;
  return value && rest.empty() && ValueText(*value, text) && !IsRefused(*value, text) &&
         bytes.size() - value->content.size() <= kUsualHeader;
}

bool HasName(const Binding& binding) {
  std::string text;
  return binding.name.FirstTag() == ber::kOid && OidText(binding.name.content, text);
}

}  // namespace

void NeutralizeOddValues(Writable pdu) {
  const auto read = ReadPdu(pdu);
  if (!read || read->tag == ber::kTrapV1) return;
  const auto writable = [&](Bytes bytes) {
    return pdu.subspan(bytes.data() - pdu.data(), bytes.size());
  };
  Bytes list = read->bindings;
  while (!list.empty()) {
    const Writable rest = writable(list);
    const auto binding = TakeBinding(list);
    if (!binding || !HasName(*binding) || binding->behindName.size() < 2) return MakeBinding(rest);
    if (!IsUsual(binding->behindName)) MakeElement(ber::kOctets, writable(binding->behindName));
  }
}

}  // namespace sentrel
