#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sentrel::query {

/// Names that may come into a query: of notifications and of bindings, as the shown traps have
/// them.
struct KnownNames {
  std::vector<std::string> notifications;
  std::vector<std::string> bindings;
};

/// What may be put in the place of the bytes from `at` to the caret.
struct Completion {
  std::size_t at = 0;
  std::vector<std::string> texts;
};

inline constexpr std::size_t kMostCompletions = 20;

/// For the word that ends at the caret, in bytes; sorted, at most kMostCompletions. Keys and names
/// of bindings begin a word; behind some keys come names or words of a list.
Completion Complete(std::string_view query, std::size_t caret, const KnownNames& known);

}  // namespace sentrel::query
