#pragma once

#include <memory>
#include <string>

#include "mib/database.h"
#include "mib/sources.h"

namespace sentrel::app {

/// The database that the program itself would use: the built-in modules and those of the standard
/// folders. Both this and the next throw Failure only where damage is looked for when reading.
std::shared_ptr<const mib::Database> ProgramDatabase(mib::DamageCheck check);
/// The built-in modules and those of the folders.
std::shared_ptr<const mib::Database> DatabaseWith(const std::vector<std::string>& folders,
                                                  mib::DamageCheck check);
/// The file of the built-in modules.
std::string BuiltInPath();
/// The built-in modules alone; a database that knows nothing, with a warning, if there are none.
std::shared_ptr<const mib::Database> BuiltInDatabase(
    mib::DamageCheck check = mib::DamageCheck::AtOnce);

/// Folders as they stand on the command line, with all folders below them.
std::vector<mib::Folder> FoldersOf(const std::vector<std::string>& paths);

}  // namespace sentrel::app
