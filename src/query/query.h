#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "query/device_names.h"
#include "query/subject.h"
#include "query/time_value.h"
#include "query/tokens.h"

namespace sentrel::query {

class Node;

/// A question about traps that has been understood. Does not change and may be copied.
class Query {
 public:
  /// Longer queries, and deeper brackets, are refused.
  static constexpr std::size_t kMostBytes = 4'096;
  static constexpr int kMostDepth = 64;

  /// Holds for every trap.
  Query() = default;
  /// Of UTF-8 text. `since:1h` counts from `now`. `names` may be null, and must outlive the query
  /// where it is not.
  static std::variant<Query, QueryError> Of(std::string_view text, Moment now,
                                            const DeviceNames* names = nullptr);

  bool IsEmpty() const { return root_ == nullptr; }
  bool Holds(const Subject& subject) const;
  /// The free words that a trap must have, folded, so that they can be marked where they are shown.
  const std::vector<std::string>& Words() const { return words_; }

 private:
  std::shared_ptr<const Node> root_;
  std::vector<std::string> words_;
};

}  // namespace sentrel::query
