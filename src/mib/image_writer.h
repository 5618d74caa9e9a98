#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "mib/catalog.h"

namespace sentrel::mib {

/// Room for an image of about this size, all zeros, in memory that the system has fetched already.
/// That takes a while: meant for a thread of its own.
std::string MakeRoom(size_t size);

/// The bytes of an image file, in the room if that is large enough.
std::string MakeImage(const Catalog& catalog, std::uint64_t fingerprint, std::string room = {});

/// Sets size and checksum in the header of an image. The bytes must begin with a whole header.
void Seal(std::string& image);

}  // namespace sentrel::mib
