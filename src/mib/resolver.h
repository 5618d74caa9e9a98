#pragma once

#include <vector>

#include "mib/catalog.h"
#include "mib/image.h"
#include "mib/message.h"
#include "mib/module.h"

namespace sentrel::mib {

/// Makes one catalog of modules and of the base image: resolves imports, OIDs and textual
/// conventions across modules, and lets NameClaims decide which of several definitions of one OID
/// names it.
///
/// The modules' named values are put into the order of their numbers. Modules and base image must
/// outlive the catalog.
Catalog Resolve(std::vector<Module>& modules, const Image& base, FileMessages& messages);

}  // namespace sentrel::mib
