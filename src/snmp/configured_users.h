#pragma once

#include "snmp/version3_users.h"

namespace sentrel {

// The users of version 3, as createUser and authUser lines of sentrel.conf tell them. The SNMP
// library calls the readers of lines and has no place for an object, so there is one list in a
// process, for the thread that sets the library up.

/// Makes the SNMP library read the lines again. For the moment when the library has registered its
/// own words and has yet to read a file.
void ReadConfiguredUsers();
/// Puts the users of the createUser lines into the SNMP library's list, for the engine ID that it
/// has now. For the moment when all files are read: a passphrase there wins over a kept key. A line
/// that the library cannot read safely is passed over.
void CreateConfiguredUsers();
/// What the authUser lines say.
const LeastLevels& ConfiguredLevels();

}  // namespace sentrel
