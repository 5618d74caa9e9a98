#pragma once

#include <string>
#include <string_view>
#include <utility>
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

  bool operator==(const Trap&) const = default;
};

/// Replaces the trap's three lists by the bindings that `encoded` holds.
using BindingReader = void (*)(std::string_view encoded, Trap& trap);

/// A trap as it is handed on. Who sent it is at hand; its bindings may stay as they came over the
/// wire until someone wants to read them, which in a storm hardly anyone does.
struct ArrivedTrap {
  ArrivedTrap() = default;
  ArrivedTrap(Trap whole) : head(std::move(whole)) {}

  /// Replaces `trap`, whose memory is used again, by all that arrived.
  void Read(Trap& trap) const {
    if (readBindings == nullptr) {
      trap = head;
      return;
    }
    trap.SourceAddress = head.SourceAddress;
    trap.Community = head.Community;
    readBindings(encoded, trap);
  }

  /// Without bindings where `readBindings` reads them from `encoded`.
  Trap head;
  std::string encoded;
  BindingReader readBindings = nullptr;
};

}  // namespace sentrel
