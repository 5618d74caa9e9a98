#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "oracle/trap_conversion.h"
#include "snmp/datagram.h"
#include "snmp/net_snmp.h"
#include "trap/trap.h"

namespace sentrel {

using LibraryPdu = std::unique_ptr<netsnmp_pdu, decltype(&snmp_free_pdu)>;

/// What the SNMP library makes of the bytes of a PDU; null where it refuses them.
inline LibraryPdu LibraryPduOf(std::vector<std::uint8_t> bytes) {
  LibraryPdu pdu(snmp_pdu_create(0), &snmp_free_pdu);
  std::size_t length = bytes.size();
  if (snmp_pdu_parse(pdu.get(), bytes.data(), &length) != 0) pdu.reset();
  return pdu;
}

/// What the SNMP library makes of a notification of version 1 or 2c; nothing where it refuses it.
inline std::optional<Trap> LibraryReading(const Datagram& datagram) {
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
  pdu->version = version;
  pdu->community = static_cast<u_char*>(netsnmp_memdup(community, communityLength));
  pdu->community_len = communityLength;
  return ToTrap(*pdu, datagram.peer);
}

/// Whether a value is shown by its octets because it cannot be read.
inline bool IsOdd(std::string_view text) {
  return text.starts_with("tag 0x");
}

/// Whether all is the same but for what is shown as odd. The library makes some number of many odd
/// values, and leaves out a version 1 agent's address of no octets.
inline bool Agree(const Trap& ours, const Trap& library) {
  if (ours.SourceAddress != library.SourceAddress || ours.Community != library.Community) {
    return false;
  }
  std::size_t j = 0;
  for (std::size_t i = 0; i < ours.OIDs.size(); ++i) {
    const bool odd = IsOdd(ours.Values[i]) || IsOdd(ours.OIDs[i]);
    const bool there = j < library.OIDs.size();
    if (odd && (!there || library.OIDs[j] != ours.OIDs[i]) && !IsOdd(ours.OIDs[i])) continue;
    if (!there) return false;
    if (!IsOdd(ours.OIDs[i]) && ours.OIDs[i] != library.OIDs[j]) return false;
    const bool same =
        ours.DataTypes[i] == library.DataTypes[j] && ours.Values[i] == library.Values[j];
    if (!odd && !same) return false;
    ++j;
  }
  return j == library.OIDs.size();
}

}  // namespace sentrel
