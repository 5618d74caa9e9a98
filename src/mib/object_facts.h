#pragma once

#include <cstdint>
#include <span>

#include "mib/database.h"
#include "platform/mib_facts.h"

namespace sentrel::mib {

/// What a database tells of the deepest known node on the way to an OID. Throws Failure where it
/// meets damage.
ObjectFacts FactsOf(const Database& database, std::span<const std::uint32_t> oid);

}  // namespace sentrel::mib
