#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "mib/catalog.h"

namespace sentrel::mib {

/// The bytes of an image file.
std::string MakeImage(const Catalog& catalog, std::uint64_t fingerprint);

/// Sets size and checksum in the header of an image. The bytes must begin with a whole header.
void Seal(std::string& image);

}  // namespace sentrel::mib
