#pragma once

#include <vector>

#include "snmp/ber.h"
#include "snmp/listener_counters.h"
#include "snmp/notification_pdu.h"

namespace sentrel {

/// What all versions of SNMP begin with. Points into the datagram.
struct MessageFrame {
  static constexpr int kVersion1 = 0;
  static constexpr int kVersion2c = 1;
  static constexpr int kVersion3 = 3;

  /// The message, without what a datagram may have behind it.
  ber::Bytes whole;
  int version;
  ber::Bytes behindVersion;
};

/// A notification of version 1 or 2c (RFC 1157, RFC 1901). Points into the datagram.
struct CommunityMessage {
  ber::Bytes whole;
  /// The content of the element in its place, whatever its tag.
  ber::Bytes community;
  /// From its tag to the end of the message.
  ber::Bytes encodedPdu;
  NotificationPdu pdu;
};

/// Both return kAccepted where they have filled the second argument in, else why not.
Outcome ReadFrame(ber::Bytes datagram, MessageFrame& frame);
Outcome ReadCommunityMessage(const MessageFrame& frame, CommunityMessage& message);

/// The response to an inform (RFC 3416, section 4.2.7): the inform itself, whatever its values are,
/// as a response without an error.
std::vector<std::uint8_t> ResponseTo(const CommunityMessage& inform);

}  // namespace sentrel
