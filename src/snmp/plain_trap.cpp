#include "snmp/plain_trap.h"

#include <charconv>
#include <optional>
#include <span>
#include <string>
#include <string_view>

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

struct Element {
  std::uint8_t tag;
  Bytes content;
};

/// Number of bytes in front of the content, and in it. No header where they are not whole, or the
/// length has an unusual form.
struct Extent {
  std::size_t header = 0;
  std::size_t content = 0;
};

Extent LongExtent(Bytes bytes) {
  const std::size_t header = 2 + (bytes[1] & 0x7F);
  if (header > 4 || header == 2 || bytes.size() < header) return {};
  return {header, header == 3 ? bytes[2] : std::size_t{bytes[2]} << 8 | bytes[3]};
}

/// Cuts one element off the front. Nothing where it is not whole, or has a length of an unusual
/// form.
inline std::optional<Element> Take(Bytes& bytes) {
  if (bytes.size() < 2) return std::nullopt;
  const Extent extent = bytes[1] < 0x80 ? Extent{2, bytes[1]} : LongExtent(bytes);
  if (extent.header == 0 || extent.content > bytes.size() - extent.header) return std::nullopt;
  const Element element{bytes[0], bytes.subspan(extent.header, extent.content)};
  bytes = bytes.subspan(extent.header + extent.content);
  return element;
}

/// The same, for the content of an element that must have the tag.
inline std::optional<Bytes> Take(Tag tag, Bytes& bytes) {
  const auto element = Take(bytes);
  if (!element || element->tag != tag) return std::nullopt;
  return element->content;
}

/// The same where nothing may follow.
std::optional<Bytes> TakeLast(Tag tag, Bytes bytes) {
  const auto content = Take(tag, bytes);
  return bytes.empty() ? content : std::nullopt;
}

bool IsPlainInteger(Bytes content) {
  return !content.empty() && content.size() <= 4;
}

/// A number whose first bit is set is negative by the rules, and senders differ on what they mean
/// by it.
bool IsPlainUnsigned(Bytes content) {
  const bool wide = content.size() == 5 && content[0] == 0;
  return (IsPlainInteger(content) || wide) && content[0] < 0x80;
}

/// Below 1., as all of the field's, with sub-identifiers of 32 bits.
bool IsPlainOid(Bytes content) {
  if (content.empty() || content[0] < 40 || content[0] >= 80) return false;
  if (content.size() > kMostSubIdentifiers - 1 || content.back() >= 0x80) return false;
  std::size_t continued = 0;
  std::uint8_t first = 0;
  for (const std::uint8_t byte : content.subspan(1)) {
    if (byte < 0x80) {
      if (continued == 4 && first > 0x8F) return false;
      continued = 0;
      continue;
    }
    if (continued == 0) first = byte;
    if (first == 0x80 || ++continued > 4) return false;
  }
  return true;
}

bool IsPlainValue(const Element& value) {
  switch (value.tag) {
    case kInteger:
      return IsPlainInteger(value.content);
    case kCounter32:
    case kGauge32:
    case kTimeTicks:
      return IsPlainUnsigned(value.content);
    case kOctets:
      return true;
    case kOid:
      return IsPlainOid(value.content);
    case kIpAddress:
      return value.content.size() == 4;
    case kNull:
      return value.content.empty();
    default:
      return false;
  }
}

bool ArePlain(Bytes bindings) {
  while (!bindings.empty()) {
    auto binding = Take(kSequence, bindings);
    if (!binding) return false;
    const auto name = Take(kOid, *binding);
    const auto value = Take(*binding);
    if (!name || !value || !binding->empty()) return false;
    if (!IsPlainOid(*name) || !IsPlainValue(*value)) return false;
  }
  return true;
}

std::uint32_t Number(Bytes content) {
  std::uint32_t value = content[0] >= 0x80 ? ~0U : 0;
  for (const std::uint8_t byte : content) value = value << 8 | byte;
  return value;
}

/// Writes where the text is to stand: copying what has just been written takes longer than making
/// it.
template <typename T>
void NumberText(T number, std::string& text) {
  text.resize(sizeof "-2147483648");
  text.resize(std::to_chars(text.data(), text.data() + text.size(), number).ptr - text.data());
}

void OidText(Bytes content, std::string& text) {
  constexpr std::size_t kMostOfByte = sizeof ".127";  // no byte makes more of the text
  text.resize(kMostOfByte * (1 + content.size()));
  char* const limit = text.data() + text.size();
  char* end = text.data();
  *end++ = '1';
  *end++ = '.';
  end = std::to_chars(end, limit, content[0] - 40).ptr;
  std::uint32_t part = 0;
  for (const std::uint8_t byte : content.subspan(1)) {
    part = part << 7 | (byte & 0x7FU);
    if (byte >= 0x80) continue;
    *end++ = '.';
    end = std::to_chars(end, limit, part).ptr;
    part = 0;
  }
  text.resize(end - text.data());
}

void ValueText(const Element& value, std::string& text) {
  switch (value.tag) {
    case kInteger:
      return NumberText(static_cast<std::int32_t>(Number(value.content)), text);
    case kCounter32:
    case kGauge32:
    case kTimeTicks:
      return NumberText(Number(value.content), text);
    case kOctets:
      return OctetText(value.content, text);
    case kOid:
      return OidText(value.content, text);
    case kIpAddress:
      text = DottedQuadText(value.content.first<4>());
      return;
    default:
      text.clear();
  }
}

/// The bindings of a trap's PDU, behind request ID, error status and error index.
std::optional<Bytes> Bindings(Bytes pdu) {
  for (int i = 0; i < 3; ++i) {
    const auto number = Take(kInteger, pdu);
    if (!number || number->empty() || number->size() > 4) return std::nullopt;
  }
  return TakeLast(kSequence, pdu);
}

/// Of bindings that are plain.
std::size_t CountOf(Bytes bindings) {
  std::size_t count = 0;
  while (Take(bindings)) ++count;
  return count;
}

/// A BindingReader of bindings that are plain.
void ReadBindings(std::string_view encoded, Trap& trap) {
  Bytes bindings(reinterpret_cast<const std::uint8_t*>(encoded.data()), encoded.size());
  const std::size_t count = CountOf(bindings);
  trap.OIDs.resize(count);
  trap.DataTypes.resize(count);
  trap.Values.resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    Bytes binding = Take(bindings)->content;
    OidText(Take(binding)->content, trap.OIDs[i]);
    const Element value = *Take(binding);
    trap.DataTypes[i] = value.tag;
    ValueText(value, trap.Values[i]);
  }
}

}  // namespace

bool TakePlainTrap(const Datagram& datagram, ArrivedTrap& trap) {
  auto message = TakeLast(kSequence, datagram.bytes);
  if (!message) return false;
  const auto version = Take(kInteger, *message);
  if (!version || version->size() != 1 || (*version)[0] != kVersion2c) return false;
  const auto community = Take(kOctets, *message);
  if (!community || community->size() > kLongestCommunity) return false;
  const auto pdu = TakeLast(kTrapV2, *message);
  const auto bindings = pdu ? Bindings(*pdu) : std::nullopt;
  if (!bindings || !ArePlain(*bindings)) return false;
  std::string sourceAddress;
  AddressText(datagram.peer, sourceAddress);
  trap.Assign(sourceAddress, OctetText(*community),
              {reinterpret_cast<const char*>(bindings->data()), bindings->size()}, &ReadBindings);
  return true;
}

}  // namespace sentrel
