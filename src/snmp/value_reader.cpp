#include "snmp/value_reader.h"

#include <fmt/format.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>

#include "common/dotted_quad.h"
#include "snmp/octet_text.h"

namespace sentrel {
namespace {

using ber::Bytes;
using ber::Element;

constexpr std::size_t kMostSubidentifiers = 128;
constexpr std::uint64_t kHighestSubidentifier = std::numeric_limits<std::uint32_t>::max();

// Second octets of the tags of numbers in an Opaque; the first is kLongTag.
constexpr std::uint8_t kLongTag = 0x9F;
enum OpaqueNumber : std::uint8_t {
  kOpaqueCounter64 = 0x76,
  kOpaqueFloat = 0x78,
  kOpaqueDouble = 0x79,
  kOpaqueSigned64 = 0x7A,
  kOpaqueUnsigned64 = 0x7B,
};

/// The octets as one number, of which the last eight count.
std::uint64_t Number(Bytes octets, std::uint64_t inFront = 0) {
  for (const std::uint8_t octet : octets) inFront = inFront << 8 | octet;
  return inFront;
}

template <typename Type>
std::optional<Type> Signed(Bytes octets) {
  if (octets.empty() || octets.size() > sizeof(std::int64_t)) return std::nullopt;
  const std::uint64_t sign = octets[0] >= 0x80 ? ~std::uint64_t{0} : 0;
  const auto number = static_cast<std::int64_t>(Number(octets, sign));
  return number == static_cast<Type>(number) ? std::optional(static_cast<Type>(number))
                                             : std::nullopt;
}

/// A first bit that is set would make the number negative, but many senders leave out the octet
/// that keeps it positive.
template <typename Type>
std::optional<Type> Unsigned(Bytes octets) {
  constexpr std::size_t kMost = sizeof(std::uint64_t) + 1;
  if (octets.empty() || octets.size() > kMost) return std::nullopt;
  if (octets.size() == kMost && octets[0] != 0) return std::nullopt;
  const std::uint64_t number = Number(octets);
  return number <= std::numeric_limits<Type>::max() ? std::optional(static_cast<Type>(number))
                                                    : std::nullopt;
}

/// Writes to where the text is to be: copying what has just been written takes longer than making
/// it.
template <typename Type>
bool NumberText(std::optional<Type> number, std::string& text) {
  constexpr std::size_t kLongestNumber = 32;
  if (!number) return false;
  text.resize(kLongestNumber);
  text.resize(std::to_chars(text.data(), text.data() + text.size(), *number).ptr - text.data());
  return true;
}

template <typename Type, typename Bits>
std::optional<Type> Floating(Bytes octets) {
  if (octets.size() != sizeof(Type)) return std::nullopt;
  return std::bit_cast<Type>(static_cast<Bits>(Number(octets)));
}

bool WrappedNumberText(Bytes content, std::string& text) {
  if (content.size() < 2 || content[0] != kLongTag || content[1] >= 0x80) return false;
  const auto number = ber::TakeElement(content);
  if (!number || !content.empty()) return false;
  const Bytes octets = number->content;
  switch (number->identifier[1]) {
    case kOpaqueFloat:
      return NumberText(Floating<float, std::uint32_t>(octets), text);
    case kOpaqueDouble:
      return NumberText(Floating<double, std::uint64_t>(octets), text);
    case kOpaqueCounter64:
    case kOpaqueUnsigned64:
      return NumberText(Unsigned<std::uint64_t>(octets), text);
    case kOpaqueSigned64:
      return NumberText(Signed<std::int64_t>(octets), text);
    default:
      return false;
  }
}

bool OctetsText(Bytes octets, std::string& text) {
  OctetText(octets, text);
  return true;
}

bool AddressText(Bytes octets, std::string& text) {
  if (octets.size() != 4) return false;
  text = DottedQuadText(octets.first<4>());
  return true;
}

bool NullText(Bytes content, std::string& text) {
  text.clear();
  return content.empty();
}

bool GoodText(const Element& value, std::string& text) {
  switch (value.FirstTag()) {
    case ber::kInteger:
      return NumberText(Signed<std::int32_t>(value.content), text);
    case ber::kCounter32:
    case ber::kGauge32:
    case ber::kTimeTicks:
    case ber::kUInteger32:
      return NumberText(Unsigned<std::uint32_t>(value.content), text);
    case ber::kCounter64:
      return NumberText(Unsigned<std::uint64_t>(value.content), text);
    case ber::kBitString:
    case ber::kOctets:
    case ber::kNsapAddress:
      return OctetsText(value.content, text);
    case ber::kOpaque:
      return WrappedNumberText(value.content, text) || OctetsText(value.content, text);
    case ber::kOid:
      return OidText(value.content, text);
    case ber::kIpAddress:
      return AddressText(value.content, text);
    case ber::kNull:
      return NullText(value.content, text);
    default:
      return false;
  }
}

/// Appends numbers with dots between them, of which the first two share one on the wire.
char* AppendFirst(std::uint64_t number, char* end, char* limit) {
  const std::uint64_t first = number < 40 ? 0 : number < 80 ? 1 : 2;
  *end++ = static_cast<char>('0' + first);
  *end++ = '.';
  return std::to_chars(end, limit, number - 40 * first).ptr;
}

}  // namespace

bool ValueText(const Element& value, std::string& text) {
  if (GoodText(value, text)) return true;
  OddText(value, text);
  return false;
}

void OddText(const Element& value, std::string& text) {
  text = fmt::format("tag 0x{:02X}: ", fmt::join(value.identifier, ""));
  if (value.content.empty()) {
    text += "empty";
  } else {
    fmt::format_to(std::back_inserter(text), "0x{:02X}", fmt::join(value.content, ""));
  }
}

bool OidText(Bytes content, std::string& text) {
  if (content.empty() || content.back() >= 0x80) return false;
  constexpr std::size_t kMostOfOctet = sizeof ".127";  // no octet makes more of the text
  text.resize(kMostOfOctet * (1 + content.size()));
  char* const limit = text.data() + text.size();
  char* end = text.data();
  std::size_t count = 1;
  std::uint64_t number = 0;
  for (const std::uint8_t octet : content) {
    number = number << 7 | (octet & 0x7FU);
    if (number > kHighestSubidentifier) return false;
    if (octet >= 0x80) continue;
    if (++count > kMostSubidentifiers) return false;
    if (count == 2) {
      end = AppendFirst(number, end, limit);
    } else {
      *end++ = '.';
      end = std::to_chars(end, limit, number).ptr;
    }
    number = 0;
  }
  text.resize(end - text.data());
  return true;
}

}  // namespace sentrel
