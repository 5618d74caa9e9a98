#pragma once

#include <filesystem>

namespace sentrel {

/// Where what belongs to the machine lies: /var/lib/sentrel.
std::filesystem::path MachineStateFolder();

/// Where this user's state lies: sentrel in $XDG_STATE_HOME, or in ~/.local/state where that is not
/// set to an absolute path. A user without a home folder gets a path that cannot be made.
std::filesystem::path UserStateFolder();

/// The file of options in either folder.
inline constexpr const char* kRegistryFile = "registry.db";

}  // namespace sentrel
