#pragma once

#include "settings/pasted_line.h"
#include "settings/pasted_user.h"

namespace sentrel {

/// createUser [-e ENGINE] NAME [PROTOCOL PASSPHRASE [PROTOCOL [PASSPHRASE]]], from the NAME or the
/// option on.
PastedUser ReadCreateUser(PastedWords words);

/// NAME [GROUP] ... [auth PROTOCOL PASSPHRASE [priv [PROTOCOL [BITS]] PASSPHRASE]], the way in
/// which many devices create a user in one command, from the NAME on. Where AES needs a longer key,
/// it is the one that those devices make.
PastedUser ReadDeviceCommand(PastedWords words);

}  // namespace sentrel
