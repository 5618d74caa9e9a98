#pragma once

#include "mib/arena.h"
#include "mib/module.h"

namespace sentrel::mib {

/// The module that a draft describes, its lists copied to the arena: the named values to stay,
/// which types refer to, the others until DropLent. Replaces the names within the module by
/// references to its own definitions and to its imports. A name that is neither becomes an import
/// from no module. Of two definitions of one name the first is meant.
Module Bind(ModuleDraft& draft, Arena& arena);

}  // namespace sentrel::mib
