#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <variant>

#include "query/node.h"
#include "query/tokens.h"

namespace sentrel::query {

/// The sign of a comparison in a token.
struct Comparison {
  std::size_t at;
  /// "=", "!=", "<", "<=", ">" or ">=".
  std::string_view sign;
};

/// Nothing where the token has no sign outside quotes, or none with a name in front of it.
std::optional<Comparison> ComparisonIn(const Token& token);

/// "ifOperStatus=down": some binding of this name has such a value. The name is that of an object,
/// with its instance or without, or an OID. "=" and "!=" know "*", labels and numbers; the others
/// compare whole numbers of any size.
std::variant<std::unique_ptr<const Node>, QueryError> BindingTerm(const Token& token,
                                                                  const Comparison& comparison);

/// Whether the OID is the subtree's or below it. Both are dotted decimal.
bool IsBelow(std::string_view oid, std::string_view subtree);
/// The OID without a dot at either end.
std::string_view WithoutDots(std::string_view oid);

}  // namespace sentrel::query
