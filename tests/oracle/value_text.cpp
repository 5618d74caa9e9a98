#include "oracle/value_text.h"

#include <array>
#include <charconv>
#include <cstdint>

#include "common/dotted_quad.h"
#include "snmp/octet_text.h"

namespace sentrel {
namespace {

template <typename Number>
std::string NumberText(Number number) {
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  return {buffer.data(), end};
}

std::uint64_t Wide(const counter64& value) {
  return std::uint64_t{static_cast<std::uint32_t>(value.high)} << 32 |
         static_cast<std::uint32_t>(value.low);
}

std::span<const std::uint8_t> Octets(const netsnmp_variable_list& binding) {
  return {binding.val.string, binding.val.string == nullptr ? 0 : binding.val_len};
}

std::string AddressText(std::span<const std::uint8_t> octets) {
  if (octets.size() != 4) return OctetText(octets);
  return DottedQuadText(octets.first<4>());
}

}  // namespace

std::string OidText(std::span<const oid> id) {
  constexpr std::size_t kLongestPart = 21;
  std::array<char, MAX_OID_LEN * kLongestPart> buffer;
  char* end = buffer.data();
  for (const oid part : id.first(std::min<std::size_t>(id.size(), MAX_OID_LEN))) {
    if (end != buffer.data()) *end++ = '.';
    end = std::to_chars(end, buffer.data() + buffer.size(), part).ptr;
  }
  return {buffer.data(), end};
}

int TypeCode(const netsnmp_variable_list& binding) {
  switch (binding.type) {
    case ASN_OPAQUE_FLOAT:
    case ASN_OPAQUE_DOUBLE:
    case ASN_OPAQUE_COUNTER64:
    case ASN_OPAQUE_I64:
    case ASN_OPAQUE_U64:
      return ASN_OPAQUE;
    default:
      return binding.type;
  }
}

std::string ValueText(const netsnmp_variable_list& binding) {
  switch (binding.type) {
    case ASN_INTEGER:
      return NumberText(*binding.val.integer);
    case ASN_COUNTER:
    case ASN_GAUGE:
    case ASN_TIMETICKS:
    case ASN_UINTEGER:
      return NumberText(static_cast<std::uint32_t>(*binding.val.integer));
    case ASN_COUNTER64:
    case ASN_OPAQUE_COUNTER64:
    case ASN_OPAQUE_U64:
      return NumberText(Wide(*binding.val.counter64));
    case ASN_OPAQUE_I64:
      return NumberText(static_cast<std::int64_t>(Wide(*binding.val.counter64)));
    case ASN_OPAQUE_FLOAT:
      return NumberText(*binding.val.floatVal);
    case ASN_OPAQUE_DOUBLE:
      return NumberText(*binding.val.doubleVal);
    case ASN_OBJECT_ID:
      return OidText({binding.val.objid, binding.val_len / sizeof(oid)});
    case ASN_IPADDRESS:
      return AddressText(Octets(binding));
    case ASN_OCTET_STR:
    case ASN_BIT_STR:
    case ASN_OPAQUE:
    case ASN_NSAP:
      return OctetText(Octets(binding));
    default:
      return {};
  }
}

}  // namespace sentrel
