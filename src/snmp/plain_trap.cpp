#include "snmp/plain_trap.h"

#include <array>
#include <charconv>
#include <span>
#include <string>
#include <utility>

#include "snmp/dotted_quad.h"
#include "snmp/octet_text.h"

namespace sentrel {
namespace {

using Bytes = std::span<const std::uint8_t>;

// Tags of RFC 3416 and X.690.
enum Tag : std::uint8_t {
  kInteger = 0x02,
  kOctets = 0x04,
  kNull = 0x05,
  kOid = 0x06,
  kSequence = 0x30,
  kIpAddress = 0x40,
  kCounter32 = 0x41,
  kGauge32 = 0x42,
  kTimeTicks = 0x43,
  kTrapV2 = 0xA7,
};

constexpr std::uint8_t kVersion2c = 1;
constexpr std::size_t kLongestCommunity = 255;
constexpr std::size_t kMostSubIdentifiers = 128;
constexpr std::size_t kLongestSubIdentifier = 11;  // with its dot

struct Element {
  std::uint8_t tag;
  Bytes content;
};

/// Cuts one element off the front. Nothing where it is not whole, or has a length of an unusual
/// form.
std::optional<Element> Take(Bytes& bytes) {
  if (bytes.size() < 2) return std::nullopt;
  std::size_t header = 2;
  std::size_t length = bytes[1];
  if (length >= 0x80) {
    header += length & 0x7F;
    if (header > 4 || header == 2 || bytes.size() < header) return std::nullopt;
    length = header == 3 ? bytes[2] : std::size_t{bytes[2]} << 8 | bytes[3];
  }
  if (length > bytes.size() - header) return std::nullopt;
  const Element element{bytes[0], bytes.subspan(header, length)};
  bytes = bytes.subspan(header + length);
  return element;
}

/// The same, for the content of an element that must have the tag.
std::optional<Bytes> Take(Tag tag, Bytes& bytes) {
  const auto element = Take(bytes);
  if (!element || element->tag != tag) return std::nullopt;
  return element->content;
}

/// The same where nothing may follow.
std::optional<Bytes> TakeLast(Tag tag, Bytes bytes) {
  const auto content = Take(tag, bytes);
  return bytes.empty() ? content : std::nullopt;
}

std::optional<std::string> SignedText(Bytes content) {
  if (content.empty() || content.size() > 4) return std::nullopt;
  std::uint32_t value = content[0] >= 0x80 ? ~0U : 0;
  for (const std::uint8_t byte : content) value = value << 8 | byte;
  return std::to_string(static_cast<std::int32_t>(value));
}

/// A number whose first bit is set is negative by the rules, and senders differ on what they mean
/// by it.
std::optional<std::string> UnsignedText(Bytes content) {
  const bool wide = content.size() == 5 && content[0] == 0;
  if (content.empty() || (content.size() > 4 && !wide) || content[0] >= 0x80) return std::nullopt;
  std::uint32_t value = 0;
  for (const std::uint8_t byte : content) value = value << 8 | byte;
  return std::to_string(value);
}

std::optional<std::string> OidText(Bytes content) {
  // Below 1., as all of the field's.
  if (content.empty() || content[0] < 40 || content[0] >= 80) return std::nullopt;
  std::array<char, kMostSubIdentifiers * kLongestSubIdentifier> text;
  if (content.size() > kMostSubIdentifiers - 1) return std::nullopt;
  char* end = text.data();
  *end++ = '1';
  *end++ = '.';
  end = std::to_chars(end, text.data() + text.size(), content[0] - 40).ptr;
  std::uint64_t part = 0;
  bool begun = false;
  for (const std::uint8_t byte : content.subspan(1)) {
    if (!begun && byte == 0x80) return std::nullopt;
    part = part << 7 | (byte & 0x7FU);
    begun = byte >= 0x80;
    if (part > 0xFFFF'FFFF) return std::nullopt;
    if (begun) continue;
    *end++ = '.';
    end = std::to_chars(end, text.data() + text.size(), part).ptr;
    part = 0;
  }
  if (begun) return std::nullopt;
  return std::string(text.data(), end);
}

std::optional<std::string> ValueText(const Element& value) {
  switch (value.tag) {
    case kInteger:
      return SignedText(value.content);
    case kCounter32:
    case kGauge32:
    case kTimeTicks:
      return UnsignedText(value.content);
    case kOctets:
      return OctetText(value.content);
    case kOid:
      return OidText(value.content);
    case kIpAddress:
      if (value.content.size() != 4) return std::nullopt;
      return DottedQuadText(value.content.first<4>());
    case kNull:
      return value.content.empty() ? std::optional<std::string>("") : std::nullopt;
    default:
      return std::nullopt;
  }
}

bool AppendBinding(Bytes& bindings, Trap& trap) {
  auto binding = Take(kSequence, bindings);
  if (!binding) return false;
  const auto name = Take(kOid, *binding);
  const auto value = Take(*binding);
  if (!name || !value || !binding->empty()) return false;
  auto id = OidText(*name);
  auto text = ValueText(*value);
  if (!id || !text) return false;
  trap.OIDs.push_back(std::move(*id));
  trap.DataTypes.push_back(value->tag);
  trap.Values.push_back(std::move(*text));
  return true;
}

/// The bindings of a trap's PDU, behind request ID, error status and error index.
std::optional<Bytes> Bindings(Bytes pdu) {
  for (int i = 0; i < 3; ++i) {
    const auto number = Take(kInteger, pdu);
    if (!number || number->empty() || number->size() > 4) return std::nullopt;
  }
  return TakeLast(kSequence, pdu);
}

std::size_t CountOf(Bytes bindings) {
  std::size_t count = 0;
  while (Take(bindings)) ++count;
  return count;
}

}  // namespace

std::optional<Trap> ReadPlainTrap(const Datagram& datagram) {
  auto message = TakeLast(kSequence, datagram.bytes);
  if (!message) return std::nullopt;
  const auto version = Take(kInteger, *message);
  if (!version || version->size() != 1 || (*version)[0] != kVersion2c) return std::nullopt;
  const auto community = Take(kOctets, *message);
  if (!community || community->size() > kLongestCommunity) return std::nullopt;
  const auto pdu = TakeLast(kTrapV2, *message);
  auto bindings = pdu ? Bindings(*pdu) : std::nullopt;
  if (!bindings) return std::nullopt;

  Trap trap;
  AddressText(datagram.peer, trap.SourceAddress);
  trap.Community = OctetText(*community);
  const std::size_t count = CountOf(*bindings);
  trap.OIDs.reserve(count);
  trap.DataTypes.reserve(count);
  trap.Values.reserve(count);
  while (!bindings->empty()) {
    if (!AppendBinding(*bindings, trap)) return std::nullopt;
  }
  return trap;
}

}  // namespace sentrel
