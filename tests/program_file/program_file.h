#pragma once

#include <elf.h>

#include <cstring>
#include <string>

#include "program_file/version_note.h"

namespace sentrel {

template <typename Record>
std::string BytesOf(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

inline std::string NoteOf(VersionNote type, const std::string& content,
                          const std::string& owner = std::string("Sentrel\0", 8)) {
  const Elf64_Nhdr header{static_cast<Elf64_Word>(owner.size()),
                          static_cast<Elf64_Word>(content.size()), static_cast<Elf64_Word>(type)};
  std::string note = BytesOf(header) + owner;
  note.resize((note.size() + 3) / 4 * 4);
  note += content;
  note.resize((note.size() + 3) / 4 * 4);
  return note;
}

/// The smallest program file that holds the notes, in a segment behind one of another kind.
inline std::string ProgramFileOf(const std::string& notes) {
  Elf64_Ehdr elf{};
  std::memcpy(elf.e_ident, ELFMAG, SELFMAG);
  elf.e_ident[EI_CLASS] = ELFCLASS64;
  elf.e_ident[EI_DATA] = ELFDATA2LSB;
  elf.e_phoff = sizeof elf;
  elf.e_phentsize = sizeof(Elf64_Phdr);
  elf.e_phnum = 2;
  Elf64_Phdr code{};
  code.p_type = PT_LOAD;
  Elf64_Phdr segment{};
  segment.p_type = PT_NOTE;
  segment.p_offset = sizeof elf + 2 * sizeof segment;
  segment.p_filesz = notes.size();
  return BytesOf(elf) + BytesOf(code) + BytesOf(segment) + notes;
}

inline FixedFileInfo Version1234() {
  FixedFileInfo info;
  info.dwFileVersionMS = 0x00010002;
  info.dwFileVersionLS = 0x00030004;
  info.dwProductVersionMS = 0x00050006;
  info.dwProductVersionLS = 0x00070008;
  return info;
}

}  // namespace sentrel
