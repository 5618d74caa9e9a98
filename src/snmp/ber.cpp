#include "snmp/ber.h"

namespace sentrel::ber {
namespace {

/// Octets of the tag in front (X.690, section 8.1.2.4); 0 where it is not whole.
std::size_t IdentifierSize(Bytes bytes) {
  if (bytes.empty()) return 0;
  if ((bytes[0] & 0x1F) != 0x1F) return 1;
  for (std::size_t i = 1; i < bytes.size(); ++i) {
    if (bytes[i] < 0x80) return i + 1;
  }
  return 0;
}

/// Cuts a length off the front. Nothing where it is indefinite, not whole, or goes beyond the
/// bytes.
std::optional<std::size_t> TakeLength(Bytes& bytes) {
  if (bytes.empty()) return std::nullopt;
  std::size_t length = bytes[0];
  std::size_t size = 1;
  if (length >= 0x80) {
    size += length & 0x7F;
    if (size == 1 || size > bytes.size()) return std::nullopt;
    length = 0;
    for (const std::uint8_t octet : bytes.subspan(1, size - 1)) {
      if (length > bytes.size()) return std::nullopt;
      length = length << 8 | octet;
    }
  }
  bytes = bytes.subspan(size);
  return length <= bytes.size() ? std::optional(length) : std::nullopt;
}

}  // namespace

std::optional<Element> TakeLongElement(Bytes& bytes) {
  const std::size_t identifier = IdentifierSize(bytes);
  if (identifier == 0) return std::nullopt;
  Bytes rest = bytes.subspan(identifier);
  const auto length = TakeLength(rest);
  if (!length) return std::nullopt;
  const Element element{bytes.first(identifier), rest.first(*length)};
  bytes = rest.subspan(*length);
  return element;
}

}  // namespace sentrel::ber
