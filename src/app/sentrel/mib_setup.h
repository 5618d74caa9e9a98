#pragma once

#include "mib/library.h"
#include "platform/main_window.h"

namespace sentrel {

/// Where the MIB modules of this program, this user and this system lie, and where their compiled
/// image is kept: the user's cache folder.
mib::LibrarySetup MibLibrarySetup(const Application& application);

}  // namespace sentrel
