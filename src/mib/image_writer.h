#pragma once

#include <cstdint>
#include <string>

#include "mib/catalog.h"

namespace sentrel::mib {

/// The bytes of an image file.
std::string MakeImage(const Catalog& catalog, std::uint64_t fingerprint);

/// Sets size and checksum in the header of an image. The bytes must begin with a whole header.
void Seal(std::string& image);

/// Writes a file so that a reader finds either the old one or the whole new one, whatever happens
/// meanwhile. Makes the folder if need be. Throws Failure.
void WriteWhole(const std::string& path, const std::string& bytes);

}  // namespace sentrel::mib
