// An image file with checksums that fit, and one with damage: whatever it holds, looking up
// never leaves it.

#include <cstdint>
#include <memory>
#include <string>

#include "common/failure.h"
#include "mib/image_writer.h"
#include "mib/lookup.h"

using namespace sentrel::mib;

namespace {

void Search(const std::shared_ptr<const Image>& image) {
  const Database database(image);
  for (const char* oid : {"1.7.1.5", "1.3.6.1.2.1.1.3.0", "0.0", "1.4294967295"}) {
    const Lookup found = LookUp(database, oid);
    ListOf(found.type);
    LabelOf(found.type, 1);
    LookUpAll(database, oid);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto bytes = std::make_shared<std::string>(reinterpret_cast<const char*>(data), size);
  if (size >= sizeof(format::Header)) Seal(*bytes);
  sentrel::Attempt([&] { Search(Image::Over(*bytes, bytes)); });
  // And with a block that does not fit its checksum.
  if (!bytes->empty()) (*bytes)[size / 2] = static_cast<char>((*bytes)[size / 2] ^ 1);
  sentrel::Attempt([&] { Search(Image::Over(*bytes, bytes, DamageCheck::WhenRead)); });
  return 0;
}
