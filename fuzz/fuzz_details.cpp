// Hints of any text, and indexes of any kind, on any value: they are refused or give a text. The
// first line is the hint; of the octets behind it each is a value, a number of an index and, by its
// last bits, the kind of an object.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "details/byte_lines.h"
#include "details/display_hint.h"
#include "details/index_parts.h"
#include "snmp/ber.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

void CheckIndex(std::string_view hint, sentrel::ber::Bytes octets) {
  if (octets.empty()) return;
  const std::size_t count = std::min<std::size_t>(octets[0] % 8, octets.size());
  std::vector<sentrel::NodeFacts> objects(count);
  for (std::size_t i = 0; i < count; ++i) {
    objects[i].base = static_cast<sentrel::ValueBase>(octets[i] % 13);
    objects[i].hint = hint;
  }
  const std::vector<std::uint32_t> numbers(octets.begin(), octets.end());
  const auto parts = sentrel::IndexParts(objects, numbers);
  Require(parts.empty() || parts.size() == count);
  const auto* end = numbers.data();
  for (const sentrel::IndexPart& part : parts) {
    Require(part.numbers.data() >= end && part.numbers.data() - end <= 1);
    end = part.numbers.data() + part.numbers.size();
  }
  Require(parts.empty() || end == numbers.data() + numbers.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::string_view hint = text.substr(0, text.find('\n'));
  const auto octets = sentrel::ber::BytesOf(text.substr(std::min(hint.size() + 1, size)));
  std::int64_t number = 0;
  for (const std::uint8_t octet : octets.first(std::min<std::size_t>(octets.size(), 8))) {
    number = static_cast<std::int64_t>(static_cast<std::uint64_t>(number) << 8 | octet);
  }
  const auto integer = sentrel::IntegerByHint(hint, number);
  Require(!integer || !integer->empty());
  const auto value = sentrel::OctetsByHint(hint, octets);
  // No octet makes more than 24 digits, a mark and 255 marks of a repetition.
  Require(!value || value->size() <= 300 * octets.size());
  Require(sentrel::OctetsByHint(hint, octets) == value);
  CheckIndex(hint, octets);
  Require(sentrel::ByteLines(sentrel::ber::TextOf(octets)).size() % 72 ==
          (octets.empty() ? 0 : 71));
  return 0;
}
