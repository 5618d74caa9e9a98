#pragma once

#include <filesystem>

#include "common/dates.h"
#include "store/database.h"

namespace sentrel {

/// Renames a damaged file, with its journal, to <name>.damaged-<date>-<time>, so that a fresh one
/// can be begun; nothing of it is removed. Does nothing where another process was first, as it has
/// begun a fresh file already, or where the folder cannot be written. Never throws.
void SetAside(const std::filesystem::path& file, const Database& open, const LocalTime& now);

}  // namespace sentrel
