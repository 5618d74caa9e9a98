#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "trap/trap.h"

namespace sentrel {

/// The text of an OCTET STRING that came as octets, where it is most likely one (ReadableOctets).
/// Nothing for any other binding. `binding` is an index into the trap's lists.
std::optional<std::string> ReadableValue(const Trap& trap, std::size_t binding);

}  // namespace sentrel
