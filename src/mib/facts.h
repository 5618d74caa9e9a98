#pragma once

#include <string>
#include <string_view>

#include "mib/catalog.h"
#include "mib/smi_parser.h"
#include "mib/trap_selection.h"

namespace sentrel::mib {

/// The facts of modules in plain text, as the repository keeps those of the built-in modules:
///
///     module IF-MIB 200006140000
///     type InterfaceIndex integer "d"
///     below 1.3.6.1.2.1.2
///     object .2.1 ifEntry row
///       of ifIndex
///     below 1.3.6.1.2.1.2.2.1
///     object .3 ifType IANAifType-MIB:IANAifType
///     object .5 ifSpeed gauge32
///       units bits per second
///     object .8 ifOperStatus integer
///       1 up
///       2 down
///     trap 1.3.6.1.6.3.1.1.5.3 linkDown
///       of ifIndex ifAdminStatus ifOperStatus
///     trap 1.3.6.1.6.3.1.1.5.4 linkUp
///       same
///
/// In the list of enterprises "labels 10 nsc - epilogue" names the numbers 10 and 12 below.
///
/// An OID that begins with a dot is below that of the line "below". A type is a base type with its
/// display hint, if any, or the name of a type of some module. Indented lines tell more of the
/// definition above them: named values, units, "of" which objects a notification consists and by
/// which ones a row is indexed. "same" stands for the list before.

/// A module; an empty text where nothing of it is selected. Without a selection everything is.
std::string WriteFacts(const Catalog& catalog, const CatalogModule& module,
                       const TrapSelection* selection = nullptr);

/// Reads what WriteFacts has written, any number of modules. A line that it cannot have written is
/// reported.
ParsedFile ParseFacts(std::string_view text, Arena& arena);

}  // namespace sentrel::mib
