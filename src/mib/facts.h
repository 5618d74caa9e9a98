#pragma once

#include <string>
#include <string_view>

#include "mib/catalog.h"
#include "mib/smi_parser.h"

namespace sentrel::mib {

/// The facts of one module in plain text, as the repository keeps those of the built-in modules:
///
///     module IF-MIB 200006140000
///     type InterfaceIndex integer "d"
///     value 1.3.6.1.2.1.2 interfaces
///     object 1.3.6.1.2.1.2.2.1.3 ifType IANAifType-MIB:IANAifType
///     object 1.3.6.1.2.1.2.2.1.8 ifOperStatus integer
///       1 up
///       2 down
///
/// A type is a base type with its display hint, if any, and its named values on the lines behind
/// it, or the name of a type of another module.
std::string WriteFacts(const Catalog& catalog, const CatalogModule& module);

/// Reads what WriteFacts has written. A line that it cannot have written is reported.
ParsedFile ParseFacts(std::string_view text, Arena& arena);

}  // namespace sentrel::mib
