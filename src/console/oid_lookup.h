#pragma once

#include <string>

#include "decoding/decoder.h"

namespace sentrel {

/// What people read of OIDs and values when they are not shown raw.
class OidLookup {
 public:
  explicit OidLookup(Decoder& decoder) : decoder_(decoder) {}

  /// The name of a value that is an OID, the value itself otherwise. A text is an OID exactly when
  /// it begins with "1.3.". Throws Failure.
  std::string LookupOIDValue(const std::string& RefValue);

  /// The line of a binding: name, " = ", value or named value. A step that fails leaves its part
  /// empty; never throws.
  std::string LookupOIDDetails(const std::string& RefOID, const std::string& RefValue);

 private:
  std::string ValueText(const OIDObject& object, const std::string& value);
  std::string NameOfValue(const std::string& value);

  Decoder& decoder_;
};

}  // namespace sentrel
