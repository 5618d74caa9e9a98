#pragma once

#include <vector>

#include "settings/pasted_line.h"
#include "settings/pasted_user.h"

namespace sentrel {

/// {local-engine | remote-engine ENGINE} user NAME PROTOCOL PASSPHRASE: one statement of a
/// configuration that is a tree, from the engine on. A user may need several statements: the
/// statement is added to the user of that name and engine, or to a new one at the end.
void ReadStatement(PastedWords words, std::vector<PastedUser>& users);

}  // namespace sentrel
