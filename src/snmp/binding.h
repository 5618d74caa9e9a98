#pragma once

#include <optional>

#include "snmp/ber.h"

namespace sentrel {

/// One binding of a list, as far as it holds to the rules (RFC 3416, section 3).
struct Binding {
  /// All of it.
  ber::Element whole;
  /// Any element: it may be no object identifier.
  ber::Element name;
  ber::Bytes behindName;
  /// Nothing where there is not one element behind the name.
  std::optional<ber::Element> value;
};

/// Cuts one binding off the front of a list. Nothing, and no change, where what is there has no
/// name. A binding that declares too great a length is as long as its name and value, where the
/// next one follows behind them.
std::optional<Binding> TakeBinding(ber::Bytes& list);

}  // namespace sentrel
