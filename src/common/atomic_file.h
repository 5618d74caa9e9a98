#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace sentrel {

/// Writes a file whole or not at all: the bytes go to a file beside it, which takes its place once
/// they are safe on the disk. Replaces a file, keeping its permissions, and writes through a
/// symbolic link. Throws Failure with the reason; then nothing is left behind and an old file is
/// as it was. A write-protected file, a folder or a device is refused.
/// A file that was not there gets `newFileMode`, less what the process masks.
void WriteFile(const std::string& path, std::string_view bytes, mode_t newFileMode = 0666);

}  // namespace sentrel
