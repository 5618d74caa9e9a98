#pragma once

#include <cstdint>
#include <string>

#include "datagrams.h"
#include "platform/version3_user_store.h"

namespace sentrel::bench {

/// The user of the traps, of any engine.
Version3UserEntry GenuineUser();

enum class Engines { One, OneForEach };

/// So many traps of the user, signed and encrypted by snmptrap, each later than the one before.
/// Ends the program where snmptrap is not installed.
Datagrams GenuineVersion3(std::uint32_t count, Engines engines);

}  // namespace sentrel::bench
