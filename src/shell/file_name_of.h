#pragma once

#include <string>

namespace sentrel {

/// The last component of a path whose folders are parted by "/", "\" or ":"; without its last
/// extension where that is to be cut. The path need not exist.
std::string FileNameOf(const std::string& Path, bool CutExtension);

}  // namespace sentrel
