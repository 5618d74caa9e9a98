#pragma once

#include <string>

#include "decoding/decoder.h"

namespace sentrel {

/// What people read of OIDs and values when they are not shown raw. Used on the event loop only;
/// the decoder must outlive it.
class OidLookup {
 public:
  explicit OidLookup(Decoder& decoder) : decoder_(decoder) {}

  /// The name of a value that is an OID, the value itself otherwise. A text is an OID exactly when
  /// it begins with "1.3.". Throws Failure.
  std::string LookupOIDValue(const std::string& RefValue);

  /// Appends the line of a binding: name, " = ", value or named value. A step that fails leaves its
  /// part empty; never throws.
  void LookupOIDDetails(const std::string& RefOID, const std::string& RefValue, std::string& text);

 private:
  void AppendValue(const OIDObject& object, const std::string& value, std::string& text);
  void AppendNameOf(const std::string& value, std::string& text);

  Decoder& decoder_;
};

}  // namespace sentrel
