#pragma once

#include <string>
#include <vector>

#include "mib/sources.h"

namespace sentrel::mib {

/// The file name of the image of the built-in modules, beside the program.
inline constexpr const char* kBuiltInImageName = "sentrel-mibs.image";
/// The file name of the image of the user's modules, in the cache folder.
inline constexpr const char* kUserImageName = "user-mibs.image";

/// Where the user's own modules may lie. The `mibs` folder within the program folder comes first,
/// then `mibs` within the user's data folder, both with all folders below them, then the folders
/// that net-snmp searches. Paths without a separator at the end; an empty one is left out.
std::vector<Folder> StandardFolders(const std::string& programFolder, const std::string& dataFolder,
                                    const std::string& homeFolder);

}  // namespace sentrel::mib
