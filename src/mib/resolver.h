#pragma once

#include <vector>

#include "mib/catalog.h"
#include "mib/database.h"
#include "mib/message.h"
#include "mib/module.h"

namespace sentrel::mib {

/// Makes one catalog of modules that stand on a base: resolves imports, OIDs and textual
/// conventions across modules and into the base, and lets NameClaims decide which of several
/// definitions of one OID names it. Of the base the catalog holds no more than the types that the
/// modules use. Throws Failure where it meets damage in the base.
///
/// The modules' named values are put into the order of their numbers. Modules and base must outlive
/// the catalog.
Catalog Resolve(std::vector<Module>& modules, const Database& base, FileMessages& messages);

}  // namespace sentrel::mib
