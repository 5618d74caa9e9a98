#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace sentrel {

/// One notification as it arrives. OIDs, DataTypes and Values are parallel: element i of each
/// belongs to variable binding i. A reader must not go beyond the shortest of them.
struct Trap {
  /// Dotted quad, or the text form of an IPv6 address.
  std::string SourceAddress;
  /// The community of versions 1 and 2c, the security name of version 3. Any UTF-8 text.
  std::string Community;
  /// Dotted decimal, without a leading dot.
  std::vector<std::string> OIDs;
  /// The full tag byte of each value in decimal: 4 OCTET STRING, 6 OBJECT IDENTIFIER,
  /// 67 TimeTicks (RFC 2578, RFC 3416).
  std::vector<int> DataTypes;
  /// The text form of each value, UTF-8.
  std::vector<std::string> Values;

  /// Which values of type OCTET STRING are octets written in hexadecimal, as ascending indexes:
  /// any other that begins with "0x" is a text. No record of a trap keeps them.
  std::vector<std::size_t> HexOctets = {};

  /// Whether all that a record keeps is the same.
  bool operator==(const Trap& other) const;
};

/// Memory that a trap occupies, in bytes, to within a few per cent.
std::size_t MemoryOf(const Trap& trap);

}  // namespace sentrel
