#pragma once

#include <string>

#include "settings/settings.h"

namespace sentrel {

/// What a table without traps says: that it waits for them, or which option keeps traps out. While
/// receiving is paused, the filters make no difference and are not mentioned.
std::string EmptyTableText(const Settings& settings);

}  // namespace sentrel
