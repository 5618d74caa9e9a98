#include "console/value_labels.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "common/failure.h"

namespace sentrel {
namespace {

/// What the MIB library answers for a number that has no name.
constexpr std::string_view kUnnamed = "unknown(0)";

/// The number at the start of a text, 0 where there is none, rounded to the nearest whole number
/// with a tie going to the even one. Nothing where that is beyond 32 bits.
std::optional<std::int32_t> LeadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  const size_t digits = text.starts_with('-') ? 1 : 0;
  const bool numeric =
      digits < text.size() && std::string_view("0123456789.").find(text[digits]) != text.npos;
  if (!numeric) return 0;
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) return std::nullopt;
  const double rounded = std::nearbyint(number);
  if (rounded < std::numeric_limits<std::int32_t>::min() ||
      rounded > std::numeric_limits<std::int32_t>::max()) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(rounded);
}

}  // namespace

bool HasValueLabels(const OIDObject& object) {
  bool named = true;  // also where the library cannot tell
  Attempt([&] { named = !object.EnumerationList().empty(); });
  return named;
}

void AppendValueLabel(const OIDObject& object, const std::string& value, std::string& text) {
  const auto number = LeadingNumber(value);
  if (!number) return;
  std::string name;
  Attempt([&] { name = object.EnumerationName(*number); });
  text.append(name == kUnnamed ? value : name);
}

}  // namespace sentrel
