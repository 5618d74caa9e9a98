#pragma once

#include "mib/catalog.h"
#include "mib/image.h"
#include "mib/type_list.h"

namespace sentrel::mib {

/// Takes everything that the base image holds over into an empty catalog, whose types the list
/// adds to. The image must outlive the catalog.
void CopyBase(const Image& base, Catalog& catalog, TypeList& types);

}  // namespace sentrel::mib
