#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace sentrel::query {

/// Where a query cannot be understood, in bytes of its text, and why, for people.
struct QueryError {
  std::size_t at = 0;
  std::size_t length = 0;
  std::string text;
};

enum class TokenKind { kOpen, kClose, kOr, kNot, kText };

struct Token {
  TokenKind kind;
  /// In the query.
  std::size_t at = 0;
  std::size_t length = 0;
  /// What kText says, without quotes. A quote may begin anywhere in it: trap:"link down".
  std::string text = {};
  /// Bytes of `text` in front of the first quoted one; its length where none is quoted. Only in
  /// front of it are ":" and "<" signs.
  std::size_t plain = 0;
};

/// Blanks separate; brackets stand for themselves; "-" in front of something is kNot, "or" by
/// itself, in any case, kOr. In quotes everything is text, and "" is a quote.
std::variant<std::vector<Token>, QueryError> Tokens(std::string_view query);

}  // namespace sentrel::query
