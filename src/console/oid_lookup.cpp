#include "console/oid_lookup.h"

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

bool IsOID(std::string_view text) {
  return text.starts_with("1.3.");
}

std::string_view WithoutInstanceZero(std::string_view name) {
  if (name.ends_with(".0")) name.remove_suffix(2);
  return name;
}

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

bool HasNamedValues(const OIDObject& object) {
  bool named = true;  // also where the library cannot tell
  Attempt([&] { named = !object.EnumerationList().empty(); });
  return named;
}

void AppendNamedValue(const OIDObject& object, const std::string& value, std::string& text) {
  const auto number = LeadingNumber(value);
  if (!number) return;
  std::string name;
  Attempt([&] { name = object.EnumerationName(*number); });
  text.append(name == kUnnamed ? value : name);
}

}  // namespace

std::string OidLookup::LookupOIDValue(const std::string& RefValue) {
  return IsOID(RefValue) ? decoder_.GetOID(RefValue)->Name() : RefValue;
}

void OidLookup::LookupOIDDetails(const std::string& RefOID, const std::string& RefValue,
                                 std::string& text) {
  std::shared_ptr<OIDObject> object;
  const bool found = Attempt([&] { object = decoder_.GetOID(RefOID); });
  if (found) Attempt([&] { text.append(WithoutInstanceZero(object->Name())); });
  text.append(" = ");
  if (found) AppendValue(*object, RefValue, text);
}

void OidLookup::AppendValue(const OIDObject& object, const std::string& value, std::string& text) {
  if (HasNamedValues(object)) {
    AppendNamedValue(object, value, text);
  } else if (IsOID(value)) {
    AppendNameOf(value, text);
  } else {
    text.append(value);
  }
}

void OidLookup::AppendNameOf(const std::string& value, std::string& text) {
  std::shared_ptr<OIDObject> object;
  if (Attempt([&] { object = decoder_.GetOID(value); })) {
    Attempt([&] { text.append(object->Name()); });
  } else {
    text.append(value);
  }
}

}  // namespace sentrel
