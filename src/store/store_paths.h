#pragma once

#include <filesystem>

namespace sentrel {

/// Where the machine's options lie: /var/lib/sentrel/registry.db.
std::filesystem::path MachineRegistryPath();

/// Where this user's lie: sentrel/registry.db in $XDG_STATE_HOME, or in ~/.local/state where that
/// is not set to an absolute path. A user without a home folder gets a path that cannot be made.
std::filesystem::path UserRegistryPath();

}  // namespace sentrel
