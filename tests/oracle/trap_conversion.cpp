#include "oracle/trap_conversion.h"

#include <algorithm>
#include <string>
#include <utility>

#include "common/dotted_quad.h"
#include "oracle/value_text.h"
#include "snmp/octet_text.h"

namespace sentrel {
namespace {

constexpr char kSysUpTime[] = "1.3.6.1.2.1.1.3.0";
constexpr char kSnmpTrapOid[] = "1.3.6.1.6.3.1.1.4.1.0";
constexpr char kSnmpTrapEnterprise[] = "1.3.6.1.6.3.1.1.4.3.0";
constexpr char kSnmpTrapAddress[] = "1.3.6.1.6.3.18.1.3.0";
/// coldStart to egpNeighborLoss stand below it, one higher than their generic trap number.
constexpr char kSnmpTraps[] = "1.3.6.1.6.3.1.1.5.";
constexpr long kLastGenericTrap = 5;

/// sysUpTime, trap OID, address, enterprise.
constexpr std::size_t kMostAdded = 4;

void Append(Trap& trap, std::string id, int type, std::string value) {
  trap.OIDs.push_back(std::move(id));
  trap.DataTypes.push_back(type);
  trap.Values.push_back(std::move(value));
}

bool Has(const Trap& trap, std::string_view id) {
  return std::find(trap.OIDs.begin(), trap.OIDs.end(), id) != trap.OIDs.end();
}

void AppendBindings(const netsnmp_pdu& pdu, Trap& trap) {
  for (const auto* binding = pdu.variables; binding != nullptr; binding = binding->next_variable) {
    Append(trap, OidText({binding->name, binding->name_length}), TypeCode(*binding),
           ValueText(*binding));
  }
}

std::string TrapOid(const netsnmp_pdu& pdu, const std::string& enterprise) {
  if (pdu.trap_type >= 0 && pdu.trap_type <= kLastGenericTrap) {
    return kSnmpTraps + std::to_string(pdu.trap_type + 1);
  }
  return enterprise + ".0." + std::to_string(static_cast<std::uint32_t>(pdu.specific_type));
}

void AppendVersion1(const netsnmp_pdu& pdu, Trap& trap) {
  const std::string enterprise = OidText({pdu.enterprise, pdu.enterprise_length});
  Append(trap, kSysUpTime, ASN_TIMETICKS, std::to_string(static_cast<std::uint32_t>(pdu.time)));
  Append(trap, kSnmpTrapOid, ASN_OBJECT_ID, TrapOid(pdu, enterprise));
  AppendBindings(pdu, trap);
  const std::string address = DottedQuadText(pdu.agent_addr);
  if (address != "0.0.0.0" && address != trap.SourceAddress && !Has(trap, kSnmpTrapAddress)) {
    Append(trap, kSnmpTrapAddress, ASN_IPADDRESS, address);
  }
  if (!Has(trap, kSnmpTrapEnterprise)) {
    Append(trap, kSnmpTrapEnterprise, ASN_OBJECT_ID, enterprise);
  }
}

std::string CommunityText(const netsnmp_pdu& pdu) {
  if (pdu.version == SNMP_VERSION_3) {
    return OctetText({reinterpret_cast<const u_char*>(pdu.securityName), pdu.securityNameLen});
  }
  return OctetText({pdu.community, pdu.community_len});
}

void Reserve(const netsnmp_pdu& pdu, Trap& trap) {
  std::size_t count = pdu.command == SNMP_MSG_TRAP ? kMostAdded : 0;
  for (const auto* binding = pdu.variables; binding != nullptr; binding = binding->next_variable) {
    ++count;
  }
  trap.OIDs.reserve(count);
  trap.DataTypes.reserve(count);
  trap.Values.reserve(count);
}

}  // namespace

Trap ToTrap(const netsnmp_pdu& pdu, const Peer& peer) {
  Trap trap;
  AddressText(peer, trap.SourceAddress);
  trap.Community = CommunityText(pdu);
  Reserve(pdu, trap);
  if (pdu.command == SNMP_MSG_TRAP) {
    AppendVersion1(pdu, trap);
  } else {
    AppendBindings(pdu, trap);
  }
  return trap;
}

}  // namespace sentrel
