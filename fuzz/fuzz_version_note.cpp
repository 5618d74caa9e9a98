// Any bytes as a program file: they have a version record and a notice, or none.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "program_file/note_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view file(reinterpret_cast<const char*>(data), size);
  sentrel::VersionIn(file);
  const std::string notice = sentrel::LegalNoticeIn(file);
  if (file.find(notice) == std::string_view::npos) std::abort();
  return 0;
}
