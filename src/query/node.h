#pragma once

#include "query/subject.h"

namespace sentrel::query {

/// What an answer costs: the cheaper side of "and" and "or" is asked first.
enum class Cost { kEnvelope, kNotification, kBindings };

/// A part of a query. Does not change.
class Node {
 public:
  explicit Node(Cost cost) : cost_(cost) {}
  virtual ~Node() = default;
  virtual bool Holds(const Subject& subject) const = 0;
  Cost PriceOf() const { return cost_; }

 private:
  Cost cost_;
};

}  // namespace sentrel::query
