#include "oracle/library_reading.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <span>

#include "snmp/octet_text.h"

namespace sentrel {
namespace {

std::uint64_t Wide(const counter64& value) {
  return std::uint64_t{static_cast<std::uint32_t>(value.high)} << 32 |
         static_cast<std::uint32_t>(value.low);
}

template <typename Number>
std::string Shortest(Number number) {
  std::array<char, 32> text;
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

std::string Oid(const oid* id, std::size_t length) {
  return fmt::format("{}", fmt::join(std::span(id, length), "."));
}

std::string Address(const u_char* octets) {
  return fmt::format("{}", fmt::join(octets, octets + 4, "."));
}

std::string Value(const netsnmp_variable_list& binding) {
  const auto& value = binding.val;
  const std::size_t size = value.string == nullptr ? 0 : binding.val_len;
  switch (binding.type) {
    case ASN_INTEGER:
      return std::to_string(*value.integer);
    case ASN_COUNTER:
    case ASN_GAUGE:
    case ASN_TIMETICKS:
    case ASN_UINTEGER:
      return std::to_string(static_cast<std::uint32_t>(*value.integer));
    case ASN_COUNTER64:
    case ASN_OPAQUE_COUNTER64:
    case ASN_OPAQUE_U64:
      return std::to_string(Wide(*value.counter64));
    case ASN_OPAQUE_I64:
      return std::to_string(static_cast<std::int64_t>(Wide(*value.counter64)));
    case ASN_OPAQUE_FLOAT:
      return Shortest(*value.floatVal);
    case ASN_OPAQUE_DOUBLE:
      return Shortest(*value.doubleVal);
    case ASN_OBJECT_ID:
      return Oid(value.objid, size / sizeof(oid));
    case ASN_NULL:
      return "";
    default:
      return binding.type == ASN_IPADDRESS && size == 4 ? Address(value.string)
                                                        : OctetText({value.string, size});
  }
}

int TypeCode(u_char type) {
  return type >= ASN_OPAQUE_COUNTER64 && type <= ASN_OPAQUE_U64 ? static_cast<int>(ASN_OPAQUE)
                                                                : type;
}

void Append(Trap& trap, const std::string& id, int type, const std::string& value) {
  trap.OIDs.push_back(id);
  trap.DataTypes.push_back(type);
  trap.Values.push_back(value);
}

void AppendBindings(const netsnmp_pdu& pdu, Trap& trap) {
  for (const auto* binding = pdu.variables; binding != nullptr; binding = binding->next_variable) {
    Append(trap, Oid(binding->name, binding->name_length), TypeCode(binding->type),
           Value(*binding));
  }
}

void AppendVersion1(const netsnmp_pdu& pdu, Trap& trap) {
  const auto appendMissing = [&](const char* id, int type, const std::string& value) {
    if (std::ranges::find(trap.OIDs, id) == trap.OIDs.end()) Append(trap, id, type, value);
  };
  const std::string enterprise = Oid(pdu.enterprise, pdu.enterprise_length);
  const bool isGeneric = pdu.trap_type >= 0 && pdu.trap_type <= 5;
  Append(trap, "1.3.6.1.2.1.1.3.0", ASN_TIMETICKS,
         std::to_string(static_cast<std::uint32_t>(pdu.time)));
  Append(trap, "1.3.6.1.6.3.1.1.4.1.0", ASN_OBJECT_ID,
         isGeneric
             ? fmt::format("1.3.6.1.6.3.1.1.5.{}", pdu.trap_type + 1)
             : fmt::format("{}.0.{}", enterprise, static_cast<std::uint32_t>(pdu.specific_type)));
  AppendBindings(pdu, trap);
  const std::string address = Address(pdu.agent_addr);
  if (address != "0.0.0.0" && address != trap.SourceAddress) {
    appendMissing("1.3.6.1.6.3.18.1.3.0", ASN_IPADDRESS, address);
  }
  appendMissing("1.3.6.1.6.3.1.1.4.3.0", ASN_OBJECT_ID, enterprise);
}

}  // namespace

LibraryPdu LibraryPduOf(std::vector<std::uint8_t> bytes) {
  LibraryPdu pdu(snmp_pdu_create(0), &snmp_free_pdu);
  std::size_t length = bytes.size();
  if (snmp_pdu_parse(pdu.get(), bytes.data(), &length) != 0) pdu.reset();
  return pdu;
}

std::optional<Trap> LibraryReading(const Datagram& datagram) {
  std::vector<std::uint8_t> bytes(datagram.bytes.begin(), datagram.bytes.end());
  std::uint8_t community[COMMUNITY_MAX_LEN];
  std::size_t communityLength = sizeof community;
  std::size_t length = bytes.size();
  long version = 0;
  const std::uint8_t* const body =
      snmp_comstr_parse(bytes.data(), &length, community, &communityLength, &version);
  if (body == nullptr || (version != SNMP_VERSION_1 && version != SNMP_VERSION_2c)) {
    return std::nullopt;
  }
  const LibraryPdu pdu = LibraryPduOf({body, body + length});
  const int command = pdu ? pdu->command : 0;
  if (command != SNMP_MSG_TRAP && command != SNMP_MSG_TRAP2 && command != SNMP_MSG_INFORM) {
    return std::nullopt;
  }
  Trap trap;
  AddressText(datagram.peer, trap.SourceAddress);
  trap.Community = OctetText({community, communityLength});
  (command == SNMP_MSG_TRAP ? AppendVersion1 : AppendBindings)(*pdu, trap);
  return trap;
}

bool Agree(const Trap& ours, const Trap& library) {
  if (ours.SourceAddress != library.SourceAddress || ours.Community != library.Community) {
    return false;
  }
  std::size_t j = 0;
  for (std::size_t i = 0; i < ours.OIDs.size(); ++i) {
    const bool oddId = IsOdd(ours.OIDs[i]);
    const bool odd = oddId || IsOdd(ours.Values[i]);
    const bool there = j < library.OIDs.size();
    const bool sameId = there && ours.OIDs[i] == library.OIDs[j];
    if (odd && !sameId && !oddId) continue;
    if (!there || !(oddId || sameId)) return false;
    const bool same =
        ours.DataTypes[i] == library.DataTypes[j] && ours.Values[i] == library.Values[j];
    if (!odd && !same) return false;
    ++j;
  }
  return j == library.OIDs.size();
}

}  // namespace sentrel
