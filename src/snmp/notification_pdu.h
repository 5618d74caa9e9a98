#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "snmp/ber.h"
#include "snmp/peer_address.h"
#include "trap/arrived_trap.h"

namespace sentrel {

/// A notification of any SNMP version as its message holds it, without what is around it.
/// Points into the bytes that it was read from.
struct NotificationPdu {
  /// ber::kTrapV1, ber::kInform or ber::kTrapV2.
  std::uint8_t tag;
  // What the numbers of an inform or a version 2 trap hold, of any length; empty in version 1.
  ber::Bytes requestId;
  ber::Bytes errorStatus;
  ber::Bytes errorIndex;
  /// The content of the list of bindings; all of the PDU's in version 1.
  ber::Bytes bindings;

  bool IsInform() const { return tag == ber::kInform; }
};

/// Takes the bytes of a PDU, beginning with its tag; more may follow. Nothing where they are no
/// notification, or its parts do not fit into it. The values do not matter:
/// they are not looked at.
std::optional<NotificationPdu> ReadPdu(std::span<const std::uint8_t> pdu);

/// Makes the trap of a notification, using its memory again. The PDU points into the message
/// (ReceivedMessage); the community is a text already, the security name in version 3.
void AssignTrap(const NotificationPdu& pdu, const Peer& peer, std::string_view community,
                ber::Bytes message, const TrapEnvelope& envelope, ArrivedTrap& trap);

}  // namespace sentrel
