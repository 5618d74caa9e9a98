#include "details/value_words.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <optional>
#include <vector>

#include "common/failure.h"
#include "common/readable_octets.h"
#include "details/display_hint.h"
#include "details/oid_numbers.h"
#include "snmp/octet_text.h"
#include "snmp/value_reader.h"

namespace sentrel {
namespace {

using ber::Bytes;

constexpr std::string_view kDateAndTimeHint = "2d-1d-1d,1d:1d:1d.1d,1a1d:1d";
/// What the MIB library answers for a number that has no name.
constexpr std::string_view kUnnamed = "unknown(0)";

std::string PlainOctets(Bytes octets) {
  std::string text = OctetText(octets);
  if (text.size() == octets.size()) return text;
  return ReadableOctets(ber::TextOf(octets)).value_or(std::move(text));
}

std::string BitWords(Bytes octets) {
  std::vector<std::size_t> set;
  for (std::size_t bit = 0; bit < 8 * octets.size(); ++bit) {
    if ((octets[bit / 8] & (0x80 >> bit % 8)) != 0) set.push_back(bit);
  }
  if (set.empty()) return "no bit set";
  return fmt::format("bit{} {} set", set.size() == 1 ? "" : "s", fmt::join(set, ", "));
}

std::string OctetWords(Bytes octets, const NodeFacts& object) {
  if (object.base == ValueBase::kBits) return BitWords(octets);
  if (object.hint == kDateAndTimeHint) {
    if (auto words = DateAndTimeWords(octets); !words.empty()) return words;
  }
  auto text = object.hint.empty() ? std::nullopt : OctetsByHint(object.hint, octets);
  // What is no text in the end is no text by its hint either.
  const bool isText = text && OctetText(ber::BytesOf(*text)) == *text;
  return isText ? std::move(*text) : PlainOctets(octets);
}

bool IsString(std::uint8_t tag) {
  return tag == ber::kOctets || tag == ber::kBitString || tag == ber::kNsapAddress;
}

std::string Counted(std::uint64_t count, const char* what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

}  // namespace

std::string ValueWords::Of(const ber::Element& value, const NodeFacts& object,
                           std::size_t most) const {
  const std::size_t size = value.content.size();
  if (IsString(value.FirstTag()) && size > most) {
    return fmt::format("{} ... ({} octets in all)", OctetWords(value.content.first(most), object),
                       size);
  }
  if (IsString(value.FirstTag())) return OctetWords(value.content, object);
  std::string text;
  if (size > most) {
    OddText({value.identifier, value.content.first(most)}, text);
    return fmt::format("{} ... ({} octets in all)", text, size);
  }
  if (!ValueText(value, text)) return text;
  if (value.FirstTag() == ber::kOid) return OfOid(text);
  return value.FirstTag() == ber::kOpaque || value.FirstTag() == ber::kIpAddress
             ? text
             : OfNumber(value, object);
}

std::string ValueWords::OfNumber(const ber::Element& value, const NodeFacts& object) const {
  std::string text;
  ValueText(value, text);
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  // NULL, and counters beyond 63 bits.
  if (error != std::errc() || end != text.data() + text.size()) return text;
  if (value.FirstTag() != ber::kTimeTicks) return OfInteger(number, object);
  return fmt::format("{} ({})", DurationWords(static_cast<std::uint32_t>(number)), number);
}

std::string ValueWords::OfInteger(std::int64_t number, const NodeFacts& object) const {
  if (object.base == ValueBase::kInteger && number <= std::numeric_limits<std::int32_t>::max() &&
      number >= std::numeric_limits<std::int32_t>::min()) {
    std::string label(kUnnamed);
    Attempt([&] {
      const auto found = names_.MakeOIDObject();
      found->SetOID(Dotted(object.oid));
      label = found->EnumerationName(static_cast<std::int32_t>(number));
    });
    if (label != kUnnamed) return label;
  }
  const auto byHint = object.hint.empty() ? std::nullopt : IntegerByHint(object.hint, number);
  std::string text = byHint.value_or(std::to_string(number));
  if (!object.units.empty()) text.append(" ").append(object.units);
  return text;
}

std::string ValueWords::OfOid(const std::string& oid) const {
  const std::string name = NameOf(oid);
  return name == oid ? oid : fmt::format("{} ({})", name, oid);
}

std::string ValueWords::NameOf(const std::string& oid) const {
  std::string name = oid;
  Attempt([&] {
    const auto found = names_.MakeOIDObject();
    found->SetOID(oid);
    name = found->Name();
  });
  return name;
}

std::string ValueWords::Of(const IndexPart& index) const {
  switch (index.object->base) {
    case ValueBase::kOctets:
    case ValueBase::kOpaque:
    case ValueBase::kBits: {
      const std::vector<std::uint8_t> octets(index.numbers.begin(), index.numbers.end());
      return OctetWords(octets, *index.object);
    }
    case ValueBase::kOid:
      return OfOid(Dotted(index.numbers));
    case ValueBase::kIpAddress:
      return Dotted(index.numbers);
    case ValueBase::kTimeTicks:
      return DurationWords(index.numbers[0]);
    case ValueBase::kInteger:
      return OfInteger(static_cast<std::int32_t>(index.numbers[0]), *index.object);
    default:
      return OfInteger(index.numbers[0], *index.object);
  }
}

std::string TypeName(const ber::Element& value) {
  switch (value.FirstTag()) {
    case ber::kInteger:
      return "INTEGER";
    case ber::kBitString:
      return "BIT STRING";
    case ber::kOctets:
      return "OCTET STRING";
    case ber::kNull:
      return "NULL";
    case ber::kOid:
      return "OBJECT IDENTIFIER";
    case ber::kIpAddress:
      return "IpAddress";
    case ber::kCounter32:
      return "Counter32";
    case ber::kGauge32:
      return "Gauge32";
    case ber::kTimeTicks:
      return "TimeTicks";
    case ber::kOpaque:
      return "Opaque";
    case ber::kNsapAddress:
      return "NsapAddress";
    case ber::kCounter64:
      return "Counter64";
    case ber::kUInteger32:
      return "UInteger32";
    default:
      return fmt::format("tag 0x{:02X}", value.FirstTag());
  }
}

std::string DurationWords(std::uint32_t hundredths) {
  const std::uint32_t seconds = hundredths / 100;
  std::string text;
  const auto append = [&](std::uint32_t count, const char* what) {
    if (count > 0) text += Counted(count, what) + ", ";
  };
  append(seconds / 86'400, "day");
  append(seconds / 3'600 % 24, "hour");
  append(seconds / 60 % 60, "minute");
  text += fmt::format("{}.{:02} seconds", seconds % 60, hundredths % 100);
  return text;
}

std::string DateAndTimeWords(std::span<const std::uint8_t> octets) {
  constexpr std::size_t kWithoutZone = 8;
  constexpr std::size_t kWithZone = 11;
  if (octets.size() != kWithoutZone && octets.size() != kWithZone) return "";
  const bool isInRange = octets[2] >= 1 && octets[2] <= 12 && octets[3] >= 1 && octets[3] <= 31 &&
                         octets[4] <= 23 && octets[5] <= 59 && octets[6] <= 60 && octets[7] <= 9;
  if (!isInRange) return "";
  std::string text =
      fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}.{}", octets[0] << 8 | octets[1], octets[2],
                  octets[3], octets[4], octets[5], octets[6], octets[7]);
  if (octets.size() == kWithoutZone) return text;
  const bool isZone = (octets[8] == '+' || octets[8] == '-') && octets[9] <= 14 && octets[10] <= 59;
  if (!isZone) return "";
  fmt::format_to(std::back_inserter(text), " UTC{}{:02}:{:02}", static_cast<char>(octets[8]),
                 octets[9], octets[10]);
  return text;
}

}  // namespace sentrel
