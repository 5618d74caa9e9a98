// From the text of a module file to an image: whatever the text, the image can be searched and
// nothing that it holds is out of bounds.

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "mib/image_writer.h"
#include "mib/lookup.h"
#include "mib/resolver.h"
#include "mib/smi_parser.h"

using namespace sentrel::mib;

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void CheckSpans(const Module& module) {
  for (const Definition& definition : module.definitions) {
    Require(definition.numbers.begin + definition.numbers.count <= module.numbers.size());
    Require(definition.values.begin + definition.values.count <= module.values.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Arena arena;
  ParsedFile file = ParseSmi({reinterpret_cast<const char*>(data), size}, arena);
  Require(file.messages.size() <= 100);
  for (const Module& module : file.modules) CheckSpans(module);
  std::vector<FileMessage> messages;
  auto bytes = std::make_shared<std::string>(MakeImage(Resolve(file.modules, {}, messages), 0));
  const Database database(Image::Over(*bytes, bytes));
  for (const char* oid : {"1.3.6.1.4.1.9.1.0", "0.0", "2.5"}) {
    Require(!LookUp(database, oid).name.empty());
  }
  return 0;
}
