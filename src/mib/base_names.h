#pragma once

#include <cstdint>
#include <string_view>

#include "mib/catalog.h"
#include "mib/database.h"

namespace sentrel::mib {

/// The built-in module of what the program itself sends.
inline constexpr std::string_view kProgramModule = "SENTREL-MIB";

/// How strong a name is that the base gives to a node: that of a label given in passing, of a
/// definition, of one in the built-in kProgramModule.
enum class BaseName : std::uint8_t { None, Label, Definition, Program };

/// For each node of the tree.
BigVector<BaseName> BaseNamesOf(const OidTree& tree, const Database& base);

}  // namespace sentrel::mib
