// A fact file: whatever the text, what was understood survives being written and read again.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "mib/facts.h"
#include "mib/resolver.h"

using namespace sentrel::mib;

namespace {

std::string Rewrite(std::string_view text) {
  Arena arena;
  ParsedFile file = ParseFacts(text, arena);
  if (file.modules.empty()) return {};
  std::vector<FileMessage> messages;
  const Catalog catalog = Resolve(file.modules, {}, messages);
  return WriteFacts(catalog, catalog.modules.at(0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string once = Rewrite({reinterpret_cast<const char*>(data), size});
  if (Rewrite(once) != once) std::abort();
  return 0;
}
