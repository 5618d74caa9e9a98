#pragma once

#include <string>

#include "decoding/decoder.h"

namespace sentrel {

/// Whether the values of the object have labels in its MIB, such as down(2) for 2; true also where
/// the library cannot tell.
bool HasValueLabels(const OIDObject& object);

/// Appends the label of the number at the start of the value, or the value itself where that number
/// has no label. Appends nothing for a number beyond 32 bits or where the library fails; never
/// throws.
void AppendValueLabel(const OIDObject& object, const std::string& value, std::string& text);

}  // namespace sentrel
