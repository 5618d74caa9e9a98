#pragma once

#include <filesystem>

namespace sentrel {

/// What this process makes of a file of options: who can write it decides what the program does.
enum class Standing {
  /// There is none, and one may be made.
  Absent,
  /// Nobody but the effective user and root (for root: root alone) has had a hand in it.
  Trusted,
  /// It is, or would be, in other hands: to be left alone, as if it were not there.
  Foreign,
};

/// Looks at the file and at what decides over it: its folder, the links that lead to it, the files
/// that a database keeps beside it. The path must be absolute. Throws Failure or
/// std::filesystem::filesystem_error where it cannot be told, or where something else than a file
/// has its name.
Standing StandingOf(const std::filesystem::path& file);

}  // namespace sentrel
