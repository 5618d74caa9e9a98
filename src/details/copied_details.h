#pragma once

#include <string>

#include "details/trap_details.h"

namespace sentrel {

// A whole trap, to be handed to somebody else. The community, or the name of the user, is in it.

/// A line for each line of the details, LF between them, values uncut and further lines indented.
std::string DetailsAsText(const TrapDetails& details);
/// An object of "message" and "bindings"; each has its bytes as hexadecimal where it has any.
std::string DetailsAsJson(const TrapDetails& details);

}  // namespace sentrel
