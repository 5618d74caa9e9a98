#pragma once

#include "mib/module.h"

namespace sentrel::mib {

/// Replaces the names within a module by references to its own definitions and to its imports.
/// A name that is neither becomes an import from no module. Of two definitions of one name the
/// first is meant. Fills Module::byName.
void Bind(Module& module);

}  // namespace sentrel::mib
