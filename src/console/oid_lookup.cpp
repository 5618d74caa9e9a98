#include "console/oid_lookup.h"

#include <string_view>

#include "common/failure.h"
#include "console/value_labels.h"

namespace sentrel {
namespace {

bool IsOID(std::string_view text) {
  return text.starts_with("1.3.");
}

std::string_view WithoutInstanceZero(std::string_view name) {
  if (name.ends_with(".0")) name.remove_suffix(2);
  return name;
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
  if (HasValueLabels(object)) {
    AppendValueLabel(object, value, text);
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
