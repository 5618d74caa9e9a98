#pragma once

#include <cstdint>
#include <string>

#include "datagrams.h"

namespace sentrel::bench {

/// The line of sentrel.conf that lets the version 3 traps in.
std::string GenuineUser();

/// So many traps of a version 3 user, signed and encrypted by snmptrap, each later than the one
/// before. Ends the program where snmptrap is not installed.
Datagrams GenuineVersion3(std::uint32_t count);

}  // namespace sentrel::bench
