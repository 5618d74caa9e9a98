#pragma once

#include <filesystem>

#include "common/dates.h"
#include "store/database.h"

namespace sentrel {

/// Keeps what is in a damaged file as <name>.damaged-<date>-<time> and empties the file in place.
/// Does nothing where another process was first. No database may be open on the file in this
/// process. Throws Failure or std::filesystem::filesystem_error, with the file as it was.
void SetAside(const std::filesystem::path& file, const LocalTime& now, const Patience& patience);

}  // namespace sentrel
