#include "details/oid_numbers.h"

#include <fmt/format.h>

#include <charconv>

#include "common/text.h"
#include "snmp/value_reader.h"

namespace sentrel {

OidNumbers NumbersOf(ber::Bytes content) {
  std::string dotted;
  return OidText(content, dotted) ? NumbersOf(dotted) : OidNumbers();
}

OidNumbers NumbersOf(std::string_view dotted) {
  OidNumbers numbers;
  for (const std::string_view part : Split(dotted, ".")) {
    std::from_chars(part.data(), part.data() + part.size(), numbers.emplace_back(0));
  }
  return numbers;
}

std::string Dotted(std::span<const std::uint32_t> numbers) {
  return fmt::format("{}", fmt::join(numbers, "."));
}

}  // namespace sentrel
