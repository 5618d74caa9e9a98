#include "program_file/note_reader.h"

#include <elf.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace sentrel {
namespace {

constexpr unsigned char kByteOrder =
    std::endian::native == std::endian::little ? ELFDATA2LSB : ELFDATA2MSB;
constexpr std::uint32_t kSignature = FixedFileInfo().dwSignature;

/// The bytes from `offset` on; nothing where the file does not have that many.
std::optional<std::string_view> Bytes(std::string_view file, std::uint64_t offset,
                                      std::uint64_t size) {
  if (offset > file.size() || size > file.size() - offset) return std::nullopt;
  return file.substr(offset, size);
}

template <typename Record>
std::optional<Record> Read(std::string_view file, std::uint64_t offset) {
  const auto bytes = Bytes(file, offset, sizeof(Record));
  if (!bytes) return std::nullopt;
  Record record;
  std::memcpy(&record, bytes->data(), sizeof record);
  return record;
}

std::optional<Elf64_Ehdr> ElfHeader(std::string_view file) {
  const auto header = Read<Elf64_Ehdr>(file, 0);
  if (!header || std::memcmp(header->e_ident, ELFMAG, SELFMAG) != 0) return std::nullopt;
  const bool ours =
      header->e_ident[EI_CLASS] == ELFCLASS64 && header->e_ident[EI_DATA] == kByteOrder;
  return ours && header->e_phentsize == sizeof(Elf64_Phdr) ? header : std::nullopt;
}

constexpr std::uint64_t Aligned(std::uint64_t size) {
  return (size + 3) & ~std::uint64_t{3};
}

/// The content of our own note of the type among the notes of one segment.
std::optional<std::string_view> NoteIn(std::string_view segment, VersionNote type) {
  constexpr std::string_view owner(kNoteOwner.data(), kNoteOwner.size());
  std::uint64_t offset = 0;
  while (const auto header = Read<Elf64_Nhdr>(segment, offset)) {
    const std::uint64_t name = offset + sizeof *header;
    const std::uint64_t content = name + Aligned(header->n_namesz);
    if (header->n_type == static_cast<std::uint32_t>(type) &&
        Bytes(segment, name, header->n_namesz) == owner) {
      return Bytes(segment, content, header->n_descsz);
    }
    offset = content + Aligned(header->n_descsz);
  }
  return std::nullopt;
}

std::optional<std::string_view> FindNote(std::string_view file, VersionNote type) {
  const auto elf = ElfHeader(file);
  for (std::uint64_t i = 0; elf && i < elf->e_phnum; ++i) {
    const auto header = Read<Elf64_Phdr>(file, elf->e_phoff + i * sizeof(Elf64_Phdr));
    if (!header) break;
    if (header->p_type != PT_NOTE) continue;
    const auto segment = Bytes(file, header->p_offset, header->p_filesz);
    const auto note = segment ? NoteIn(*segment, type) : std::nullopt;
    if (note) return note;
  }
  return std::nullopt;
}

}  // namespace

std::optional<VersionRecord> VersionIn(std::string_view file) {
  const auto note = FindNote(file, VersionNote::FixedFileInfo);
  if (!note || note->size() != sizeof(FixedFileInfo)) return std::nullopt;
  const auto info = Read<FixedFileInfo>(*note, 0);
  if (!info || info->dwSignature != kSignature) return std::nullopt;
  return VersionRecord{info->dwFileVersionMS, info->dwFileVersionLS, info->dwProductVersionMS,
                       info->dwProductVersionLS};
}

std::string LegalNoticeIn(std::string_view file) {
  const std::string_view note = FindNote(file, VersionNote::LegalNotice).value_or("");
  const auto isControl = [](unsigned char c) { return c < ' ' || c == 0x7F; };
  return {note.begin(), std::find_if(note.begin(), note.end(), isControl)};
}

}  // namespace sentrel
