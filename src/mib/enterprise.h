#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mib/catalog.h"

namespace sentrel::mib {

/// The enterprise of what lies outside of all enterprises; the registry reserves the number.
inline constexpr std::uint32_t kNoEnterprise = 0;

/// For each node of the tree the number of the enterprise that it belongs to: N for 1.3.6.1.4.1.N
/// and for all below it, else kNoEnterprise.
BigVector<std::uint32_t> EnterprisesOf(const OidTree& tree);

/// The enterprise whose module it is: to which most of its definitions belong, the smaller number
/// where two have as many.
std::uint32_t HomeOf(const Catalog& catalog, const CatalogModule& module,
                     const BigVector<std::uint32_t>& enterprises);

/// A name for an enterprise, made of that of its organisation: "ciscoSystems" of "Cisco Systems,
/// Inc.". Words of letters and digits are put together, without legal forms at the end and
/// without what stands in parentheses; each begins with a capital letter, the first one with a
/// small one. A name that would begin with a digit gets an "n" before it. At most 32 characters,
/// cut between words where that is possible. Empty where nothing is left, as of a name without
/// Latin letters.
std::string EnterpriseName(std::string_view organisation);

}  // namespace sentrel::mib
