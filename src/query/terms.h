#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "query/device_names.h"
#include "query/node.h"
#include "query/time_value.h"
#include "query/tokens.h"

namespace sentrel::query {

using OwnedNode = std::unique_ptr<const Node>;

/// What the keys and values of a query may refer to.
struct TermContext {
  Moment now;
  /// May be null.
  const DeviceNames* names = nullptr;
};

/// The term of a text token: "key:value", "name=value" with one of = != < <= > >=, or a free word.
/// An error's place is in the query.
std::variant<OwnedNode, QueryError> TermOf(const Token& token, const TermContext& context);

/// Whether the token is a free word.
bool IsFreeWord(const Token& token);

}  // namespace sentrel::query
