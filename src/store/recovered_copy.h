#pragma once

#include <filesystem>
#include <memory>

#include "store/database.h"

namespace sentrel {

/// What a file holds that a dead writer has left half written, for a process that may read but not
/// repair it: opens a private copy, with the half transaction undone. The copy has no name any more
/// when this returns. Throws Failure or std::filesystem::filesystem_error.
std::unique_ptr<Database> OpenRecoveredCopy(const std::filesystem::path& file,
                                            const Patience& patience);

}  // namespace sentrel
