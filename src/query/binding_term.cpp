#include "query/binding_term.h"

#include <fmt/format.h>

#include <algorithm>
#include <compare>
#include <string>

#include "query/folded.h"
#include "query/pattern.h"

namespace sentrel::query {
namespace {

/// A whole number of any size.
struct Number {
  bool isNegative = false;
  /// Without zeros in front; empty for 0.
  std::string_view digits;
};

std::optional<Number> NumberOf(std::string_view text) {
  Number number;
  number.isNegative = text.starts_with('-');
  if (number.isNegative) text.remove_prefix(1);
  const bool isNumber =
      !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
  if (!isNumber) return std::nullopt;
  number.digits = text.substr(std::min(text.find_first_not_of('0'), text.size()));
  if (number.digits.empty()) number.isNegative = false;
  return number;
}

std::strong_ordering Order(const Number& a, const Number& b) {
  if (a.isNegative != b.isNegative) return b.isNegative <=> a.isNegative;
  const Number& low = a.isNegative ? b : a;
  const Number& high = a.isNegative ? a : b;
  if (low.digits.size() != high.digits.size()) return low.digits.size() <=> high.digits.size();
  return low.digits <=> high.digits;
}

class Binding : public Node {
 public:
  Binding(std::string_view name, std::string_view sign, std::string_view value)
      : Node(Cost::kBindings),
        name_(Folded(WithoutDots(name))),
        sign_(sign),
        value_(value),
        pattern_(value) {}

  bool Holds(const Subject& subject) const override {
    return std::ranges::any_of(subject.Bindings(), [this](const NamedValue& binding) {
      return HasName(binding) && HasValue(binding);
    });
  }

 private:
  bool HasName(const NamedValue& binding) const {
    if (IsBelow(binding.oid, name_)) return true;
    const std::string name = Folded(binding.name);
    return name.starts_with(name_) && (name.size() == name_.size() || name[name_.size()] == '.');
  }

  bool HasValue(const NamedValue& binding) const {
    if (sign_ == "=" || sign_ == "!=") return IsEqual(binding) == (sign_ == "=");
    const auto wanted = NumberOf(value_);
    const auto found = NumberOf(binding.value);
    if (!wanted || !found) return false;
    const auto order = Order(*found, *wanted);
    const bool isStrict = sign_.size() == 1;
    if (std::is_eq(order)) return !isStrict;
    return sign_[0] == '<' ? std::is_lt(order) : std::is_gt(order);
  }

  bool IsEqual(const NamedValue& binding) const {
    return pattern_.Fits(binding.value) ||
           (!binding.label.empty() &&
            (pattern_.Fits(binding.label) ||
             pattern_.Fits(fmt::format("{}({})", binding.label, binding.value))));
  }

  std::string name_;
  std::string_view sign_;
  std::string value_;
  Pattern pattern_;
};

}  // namespace

std::string_view WithoutDots(std::string_view oid) {
  if (oid.starts_with('.')) oid.remove_prefix(1);
  if (oid.ends_with('.')) oid.remove_suffix(1);
  return oid;
}

bool IsBelow(std::string_view oid, std::string_view subtree) {
  return oid.starts_with(subtree) && (oid.size() == subtree.size() || oid[subtree.size()] == '.');
}

std::optional<Comparison> ComparisonIn(const Token& token) {
  const std::string_view plain = std::string_view(token.text).substr(0, token.plain);
  const auto at = plain.find_first_of("=<>!");
  if (at == std::string_view::npos || at == 0) return std::nullopt;
  for (const std::string_view sign : {"!=", "<=", ">=", "=", "<", ">"}) {
    if (plain.substr(at).starts_with(sign)) return Comparison{at, sign};
  }
  return std::nullopt;
}

std::variant<std::unique_ptr<const Node>, QueryError> BindingTerm(const Token& token,
                                                                  const Comparison& comparison) {
  const std::string_view text = token.text;
  const auto name = text.substr(0, comparison.at);
  const auto value = text.substr(comparison.at + comparison.sign.size());
  const bool isOrder = comparison.sign[0] == '<' || comparison.sign[0] == '>';
  if (value.empty()) {
    return QueryError{token.at, token.length, "A value comes behind the sign, as in ifIndex>25."};
  }
  if (isOrder && !NumberOf(value)) {
    return QueryError{token.at, token.length,
                      fmt::format("\"{}\" is not a whole number to compare with.", value)};
  }
  return std::make_unique<Binding>(name, comparison.sign, value);
}

}  // namespace sentrel::query
