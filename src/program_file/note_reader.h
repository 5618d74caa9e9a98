#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/version_reader.h"
#include "program_file/version_note.h"

namespace sentrel {

/// The version record in the bytes of a file; nothing where they are no 64-bit ELF file of this
/// machine's byte order with such a note, whatever else they are. Of several notes the first
/// counts.
std::optional<VersionRecord> VersionIn(std::string_view file);

/// The legal notice in the bytes of a file, up to its first control character; empty where there is
/// none.
std::string LegalNoticeIn(std::string_view file);

}  // namespace sentrel
