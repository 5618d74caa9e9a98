#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "mib/database.h"

namespace sentrel::mib {

/// What a database tells of the values of an object: a type in one of its images.
struct ValueType {
  const Image* image = nullptr;
  /// Null where nothing is known.
  const format::TypeRecord* record = nullptr;
};

/// Where the answers for an OID are, and how many of its numbers they stand for; a match of depth 0
/// where LookUp gives the text itself. Throws Failure where it meets damage.
Database::Match MatchOf(const Database& database, std::span<const std::uint32_t> oid);

/// What a database tells of one OID text.
struct Lookup {
  /// The name of the deepest known node and what is left of the text. For X.0.N that is not known
  /// the name of the notification X.N, and the other way round: RFC 3584 section 3.1 puts a 0 where
  /// many modules have none. The whole text, without a leading dot, where nothing or no more than
  /// iso, org or dod is known: "1.3.7" may as well be a version. The text itself where it is no
  /// OID.
  std::string name;
  /// The type of the node's object; one without named values if there is none.
  ValueType type;
};

/// `type` points into the database. Throws Failure where it meets damage.
Lookup LookUp(const Database& database, std::string_view oid);

/// What one module calls an OID.
struct Answer {
  std::string name;
  std::string_view module;
  ValueType type;
};

/// All that the modules of a database call an OID, that of LookUp first. Nothing where LookUp gives
/// the text itself. Reads all entries. What the answers point to lies in the database.
std::vector<Answer> LookUpAll(const Database& database, std::string_view oid);

/// "up(1),down(2)", empty where the type has no named values.
std::string ListOf(const ValueType& type);

/// "down(2)"; "unknown(0)" where the type has no name for the number.
std::string LabelOf(const ValueType& type, std::int32_t number);

}  // namespace sentrel::mib
