#pragma once

#include <string_view>
#include <vector>

#include "mib/catalog.h"
#include "mib/image.h"
#include "mib/import_resolver.h"
#include "mib/message.h"

namespace sentrel::mib {

/// The built-in module of what the program itself sends.
inline constexpr std::string_view kProgramModule = "SENTREL-MIB";

/// Makes one catalog of modules and of the base image: resolves imports, OIDs and textual
/// conventions across modules. Where several definitions claim one OID, kProgramModule wins if the
/// base image holds it or is empty, then modules over the base image, definitions over labels given
/// in passing, modules of the enterprise that the OID belongs to over others, macros over plain
/// values, the newer module over the older one, the earlier in the list over the later one.
///
/// The modules' named values are put into the order of their numbers. Modules and base image must
/// outlive the catalog.
Catalog Resolve(std::vector<Module>& modules, const Image& base,
                std::vector<FileMessage>& messages);

}  // namespace sentrel::mib
