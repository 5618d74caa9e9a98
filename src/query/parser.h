#pragma once

#include <string>
#include <variant>
#include <vector>

#include "query/terms.h"

namespace sentrel::query {

struct Parsed {
  /// Null where the query is empty.
  OwnedNode root;
  std::vector<std::string> words;
};

/// Terms side by side mean "and", which binds tighter than "or"; "-" binds tightest.
std::variant<Parsed, QueryError> Parse(std::vector<Token> tokens, const TermContext& context,
                                       int mostDepth);

}  // namespace sentrel::query
