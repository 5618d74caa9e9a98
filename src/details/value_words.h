#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "details/index_parts.h"
#include "platform/mib_facts.h"
#include "platform/oid_object.h"
#include "snmp/ber.h"

namespace sentrel {

/// Of a longer string only this many octets are put into words where a line has to show them.
inline constexpr std::size_t kMostShownOctets = 1024;

/// What values mean, in words: by DISPLAY-HINT, named values and units, dates and times as people
/// write them, object identifiers by name. Texts may hold anything that arrived. Used on the event
/// loop only.
class ValueWords {
 public:
  /// Must outlive this.
  ValueWords(MibLibrary& names, const MibFacts& facts) : names_(names), facts_(facts) {}

  /// Of strings, no more than `most` octets.
  std::string Of(const ber::Element& value, const NodeFacts& object, std::size_t most) const;
  std::string Of(const IndexPart& index) const;
  /// "ifOperStatus.7"; dotted decimal where nothing is known.
  std::string NameOf(const std::string& oid) const;

 private:
  std::string OfNumber(const ber::Element& value, const NodeFacts& object) const;
  std::string OfInteger(std::int64_t number, const NodeFacts& object) const;
  std::string OfOid(const std::string& oid) const;

  MibLibrary& names_;
  const MibFacts& facts_;
};

/// "OCTET STRING": the type of a value by its tag.
std::string TypeName(const ber::Element& value);

/// Hundredths of a second: "1 day, 2 hours, 3.05 seconds".
std::string DurationWords(std::uint32_t hundredths);

/// DateAndTime (RFC 2579): "2026-11-24 02:31:37.1 UTC-03:30"; empty where the octets are none.
std::string DateAndTimeWords(std::span<const std::uint8_t> octets);

}  // namespace sentrel
