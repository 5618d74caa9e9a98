#include "program_file/note_reader.h"

#include <elf.h>
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>

#include "program_file/elf_version_reader.h"
#include "program_file/version_note.h"

namespace sentrel {
namespace {

template <typename Record>
std::string BytesOf(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

std::string NoteOf(VersionNote type, const std::string& content,
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
std::string ProgramFileOf(const std::string& notes) {
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

FixedFileInfo Version1234() {
  FixedFileInfo info;
  info.dwFileVersionMS = 0x00010002;
  info.dwFileVersionLS = 0x00030004;
  info.dwProductVersionMS = 0x00050006;
  info.dwProductVersionLS = 0x00070008;
  return info;
}

const std::string kVersion = NoteOf(VersionNote::FixedFileInfo, BytesOf(Version1234()));

TEST(NoteReader, FindsItsOwnNotesAmongOthers) {
  const std::string other = NoteOf(VersionNote::FixedFileInfo, "id", std::string("GNU\0", 4));
  const std::string notice = NoteOf(VersionNote::LegalNotice, "Free for all.");
  for (const std::string& notes : {kVersion + notice, other + notice + kVersion}) {
    const std::string file = ProgramFileOf(notes);
    const auto record = VersionIn(file);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->dwFileVersionMS, 0x00010002U);
    EXPECT_EQ(record->dwFileVersionLS, 0x00030004U);
    EXPECT_EQ(record->dwProductVersionMS, 0x00050006U);
    EXPECT_EQ(record->dwProductVersionLS, 0x00070008U);
    EXPECT_EQ(LegalNoticeIn(file), "Free for all.");
  }
  EXPECT_EQ(LegalNoticeIn(ProgramFileOf(kVersion)), "");
}

TEST(NoteReader, GivesNothingForADamagedFile) {
  const std::string whole = ProgramFileOf(kVersion);
  ASSERT_TRUE(VersionIn(whole));
  for (size_t size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(VersionIn(std::string_view(whole).substr(0, size))) << size << " bytes";
  }
  FixedFileInfo unsignedInfo = Version1234();
  unsignedInfo.dwSignature = 0;
  const std::string notes[] = {
      "",
      NoteOf(VersionNote::FixedFileInfo, "too short"),
      NoteOf(VersionNote::FixedFileInfo, BytesOf(unsignedInfo)),
      NoteOf(VersionNote::FixedFileInfo, BytesOf(Version1234()), std::string("Sentreo\0", 8)),
  };
  for (const std::string& note : notes) EXPECT_FALSE(VersionIn(ProgramFileOf(note)));
}

TEST(NoteReader, EndsANoticeAtAControlCharacter) {
  const std::string text("One line.\r\nAnother\0", 19);
  EXPECT_EQ(LegalNoticeIn(ProgramFileOf(NoteOf(VersionNote::LegalNotice, text))), "One line.");
}

TEST(ElfVersionReader, ReadsTheProgramAndNoOtherFile) {
  const ElfVersionReader reader;
  const auto record = reader.ReadVersion(SENTREL_PROGRAM);
  ASSERT_TRUE(record);
  EXPECT_EQ(
      fmt::format("{}.{}.{}.{}", record->dwFileVersionMS >> 16, record->dwFileVersionMS & 0xFFFF,
                  record->dwFileVersionLS >> 16, record->dwFileVersionLS & 0xFFFF),
      SENTREL_VERSION);
  EXPECT_EQ(record->dwProductVersionMS, record->dwFileVersionMS);
  EXPECT_EQ(record->dwProductVersionLS, record->dwFileVersionLS);
  EXPECT_NE(reader.ReadLegalNotice(SENTREL_PROGRAM).find("MIT License"), std::string::npos);

  for (const char* file : {"/bin/sh", "/etc/passwd", "/nowhere", "/", "/dev/zero", "/dev/null"}) {
    EXPECT_FALSE(reader.ReadVersion(file)) << file;
    EXPECT_EQ(reader.ReadLegalNotice(file), "") << file;
  }
}

TEST(ElfVersionReader, ReadsAnotherBuildAndItsDate) {
  const std::string path = testing::TempDir() + "/another-build";
  std::ofstream(path, std::ios::binary) << ProgramFileOf(kVersion);
  const ElfVersionReader reader;
  EXPECT_TRUE(reader.ReadVersion(path));
  EXPECT_GE(reader.WrittenAt(path).year, 2024);
  EXPECT_THROW(reader.WrittenAt("/nowhere"), std::exception);
}

}  // namespace
}  // namespace sentrel
