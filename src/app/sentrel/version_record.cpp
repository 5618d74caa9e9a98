// The version and the legal notice of the program, as data of its file. The numbers come from the
// build, which takes them from the project.

#include <algorithm>
#include <string_view>

#include "program_file/version_note.h"

namespace sentrel {
namespace {

constexpr std::uint32_t Word(std::uint32_t upper, std::uint32_t lower) {
  return upper << 16 | lower;
}

constexpr std::uint32_t kUpper = Word(SENTREL_VERSION_MAJOR, SENTREL_VERSION_MINOR);
constexpr std::uint32_t kLower = Word(SENTREL_VERSION_PRIVATE, SENTREL_VERSION_BUILD);

constexpr std::string_view kLegalNotice =
    "Copyright (c) 2026 The Sentrel developers. MIT License: free to use, copy and change.";
/// The size of a note is a multiple of 4.
using NoticeText = std::array<char, (kLegalNotice.size() + 4) / 4 * 4>;

constexpr NoticeText Notice() {
  NoticeText text{};
  std::copy(kLegalNotice.begin(), kLegalNotice.end(), text.begin());
  return text;
}

struct Notes {
  Note<FixedFileInfo> version;
  Note<NoticeText> notice;
};
static_assert(alignof(Notes) == 4);

// Said to be 4 again, or the compiler would align it to more, which notes may not be.
alignas(4) [[gnu::used, gnu::retain, gnu::section(".note.sentrel")]] const Notes kNotes = {
    {.type = VersionNote::FixedFileInfo,
     .content = {.dwFileVersionMS = kUpper,
                 .dwFileVersionLS = kLower,
                 .dwProductVersionMS = kUpper,
                 .dwProductVersionLS = kLower}},
    {.type = VersionNote::LegalNotice, .content = Notice()}};

}  // namespace
}  // namespace sentrel
