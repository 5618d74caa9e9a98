#pragma once

#include <span>
#include <string>
#include <string_view>

#include "trap/trap_envelope.h"

namespace sentrel::query {

/// A binding in the words that people read.
struct NamedValue {
  /// Dotted decimal.
  std::string oid;
  /// "ifOperStatus.12"; the OID where nothing is known.
  std::string name;
  /// As the table shows it, without its label.
  std::string value;
  /// "down" where the value is a number that has one, else empty. The name where it is an OID.
  std::string label;
};

/// A trap, as far as a query asks about it. What is behind the first three is worked out when it is
/// asked for.
class Subject {
 public:
  virtual ~Subject() = default;
  /// Dotted quad, or the text form of an IPv6 address.
  virtual std::string_view Sender() const = 0;
  /// The community of versions 1 and 2c, the user's name of version 3.
  virtual std::string_view Community() const = 0;
  virtual const TrapEnvelope& Envelope() const = 0;

  /// Dotted decimal; empty where the trap has none.
  virtual std::string_view NotificationOid() const = 0;
  virtual std::string_view NotificationName() const = 0;
  /// The name of the enterprise or product; empty where the trap tells none.
  virtual std::string_view DeviceType() const = 0;
  virtual std::span<const NamedValue> Bindings() const = 0;
};

}  // namespace sentrel::query
