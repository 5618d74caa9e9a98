#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace sentrel {

/// What values are made of when all conventions are resolved (RFC 2578, section 7.1).
enum class ValueBase {
  kUnknown,
  kInteger,
  kOctets,
  kOid,
  kBits,
  kIpAddress,
  kCounter32,
  kGauge32,
  kTimeTicks,
  kOpaque,
  kCounter64,
  kTable,
  kRow,
};

/// What the MIB database knows of a node. Texts are as a module's author wrote them.
struct NodeFacts {
  /// Empty where nothing is known.
  std::string name;
  std::string module;
  /// The node's own OID, which may be shorter than the one that was asked for.
  std::vector<std::uint32_t> oid;
  ValueBase base = ValueBase::kUnknown;
  /// DISPLAY-HINT (RFC 2579, section 3.1); mostly empty.
  std::string hint;
  std::string units;
};

/// What the MIB database knows of a node, and of the row that it is a column of.
struct ObjectFacts {
  NodeFacts node;
  /// The objects that instances of the row are told apart by, in their order; those of the other
  /// row where the row augments one (RFC 2578, sections 7.7 and 7.8). Empty for a scalar.
  std::vector<NodeFacts> indexes;
};

/// Tells what the MIB database knows beyond names. Used from the event loop only.
class MibFacts {
 public:
  virtual ~MibFacts() = default;
  /// Of the deepest known node on the way to the OID. Nothing is known of it in a damaged database.
  /// Never throws.
  virtual ObjectFacts FactsOf(std::span<const std::uint32_t> oid) const = 0;
};

}  // namespace sentrel
