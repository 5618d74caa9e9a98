#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// What a program file says of itself, as two ELF notes of the owner "Sentrel" that `readelf -n`
// lists: type 1 a VS_FIXEDFILEINFO of 13 words, type 2 the legal notice as UTF-8 text.

namespace sentrel {

enum class VersionNote : std::uint32_t { FixedFileInfo = 1, LegalNotice = 2 };

inline constexpr std::array<char, 8> kNoteOwner = {'S', 'e', 'n', 't', 'r', 'e', 'l', '\0'};

/// VS_FIXEDFILEINFO, 52 bytes, in the byte order of the machine.
struct FixedFileInfo {
  std::uint32_t dwSignature = 0xFEEF04BD;
  std::uint32_t dwStrucVersion = 0x00010000;
  std::uint32_t dwFileVersionMS = 0;
  std::uint32_t dwFileVersionLS = 0;
  std::uint32_t dwProductVersionMS = 0;
  std::uint32_t dwProductVersionLS = 0;
  std::uint32_t dwFileFlagsMask = 0x3F;
  std::uint32_t dwFileFlags = 0;
  std::uint32_t dwFileOS = 0;
  std::uint32_t dwFileType = 1;
  std::uint32_t dwFileSubtype = 0;
  std::uint32_t dwFileDateMS = 0;
  std::uint32_t dwFileDateLS = 0;
};
static_assert(sizeof(FixedFileInfo) == 52);

/// One note as it lies in the file.
template <typename Content>
struct Note {
  std::uint32_t ownerSize = sizeof kNoteOwner;
  std::uint32_t contentSize = sizeof(Content);
  VersionNote type;
  std::array<char, 8> owner = kNoteOwner;
  Content content;
};

}  // namespace sentrel
