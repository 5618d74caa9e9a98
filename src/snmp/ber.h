#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace sentrel::ber {

using Bytes = std::span<const std::uint8_t>;

/// The same octets; the argument must outlive the result.
inline Bytes BytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}
inline std::string_view TextOf(Bytes bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Tags of RFC 1157, RFC 3416 and X.690, and of the numbers that are wrapped in an Opaque.
enum Tag : std::uint8_t {
  kInteger = 0x02,
  kBitString = 0x03,
  kOctets = 0x04,
  kNull = 0x05,
  kOid = 0x06,
  kSequence = 0x30,
  kIpAddress = 0x40,
  kCounter32 = 0x41,
  kGauge32 = 0x42,
  kTimeTicks = 0x43,
  kOpaque = 0x44,
  kNsapAddress = 0x45,
  kCounter64 = 0x46,
  kUInteger32 = 0x47,
  kGetRequest = 0xA0,
  kResponse = 0xA2,
  kTrapV1 = 0xA4,
  kInform = 0xA6,
  kTrapV2 = 0xA7,
  kReport = 0xA8,
};

/// One element (X.690, section 8.1): the octets of its tag, of which there is at least one, and of
/// its content.
struct Element {
  Bytes identifier;
  Bytes content;

  /// The first octet of the tag, which is the whole of every tag that SNMP uses.
  std::uint8_t FirstTag() const { return identifier[0]; }
};

/// What TakeElement does with tags and lengths of more than one octet.
std::optional<Element> TakeLongElement(Bytes& bytes);

/// Cuts one element off the front. Any tag will do, and any definite length, also one written with
/// more octets than it needs. Nothing, and no change, where the element is not whole or its length
/// is indefinite.
inline std::optional<Element> TakeElement(Bytes& bytes) {
  const bool isShort = bytes.size() >= 2 && (bytes[0] & 0x1F) != 0x1F && bytes[1] < 0x80;
  if (!isShort) return TakeLongElement(bytes);
  if (bytes[1] > bytes.size() - 2) return std::nullopt;
  const Element element{bytes.first(1), bytes.subspan(2, bytes[1])};
  bytes = bytes.subspan(std::size_t{2} + element.content.size());
  return element;
}

/// The same, for the content of an element that must have the tag.
inline std::optional<Bytes> TakeContent(Tag tag, Bytes& bytes) {
  if (bytes.empty() || bytes[0] != tag) return std::nullopt;
  const auto element = TakeElement(bytes);
  return element ? std::optional(element->content) : std::nullopt;
}

}  // namespace sentrel::ber
