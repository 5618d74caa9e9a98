#include "snmp/datagram_description.h"

#include <fmt/format.h>

#include <algorithm>

#include "snmp/community_message.h"
#include "snmp/octet_text.h"
#include "snmp/usm_parameters.h"

namespace sentrel {
namespace {

using ber::Bytes;

constexpr std::string_view kTrapOid = "1.3.6.1.6.3.1.1.4.1.0";

/// In the words of people, who count versions from 1 and call the second one 2c.
int NumberOf(int version) {
  return version == MessageFrame::kVersion3 ? 3 : version + 1;
}

std::string NotificationOf(Bytes encodedPdu, const Peer& peer) {
  const auto pdu = ReadPdu(encodedPdu);
  if (!pdu) return "";
  ArrivedTrap arrived;
  AssignTrap(*pdu, peer, "", arrived);
  Trap trap;
  arrived.Read(trap);
  const auto found = std::ranges::find(trap.OIDs, kTrapOid);
  const auto at = static_cast<std::size_t>(found - trap.OIDs.begin());
  return at < trap.Values.size() ? trap.Values[at] : "";
}

/// RFC 3412, section 6.4: bit 0 says authenticated, bit 1 encrypted, which has no meaning alone.
SecurityLevel LevelOf(std::uint8_t flags) {
  if ((flags & 1) == 0) return SecurityLevel::kNoAuthNoPriv;
  return (flags & 2) == 0 ? SecurityLevel::kAuthNoPriv : SecurityLevel::kAuthPriv;
}

/// Puts in what a version 3 message tells in clear (RFC 3412, section 6). Returns what is behind
/// its security parameters.
Bytes DescribeVersion3(Bytes behindVersion, SeenDatagram& seen) {
  auto header = ber::TakeContent(ber::kSequence, behindVersion);
  if (!header) return {};
  ber::TakeElement(*header);  // msgID
  ber::TakeElement(*header);  // msgMaxSize
  const auto flags = ber::TakeContent(ber::kOctets, *header);
  if (flags && flags->size() == 1) seen.level = LevelOf(flags->front());
  const auto parameters = ReadUsmParameters(behindVersion);
  if (!parameters) return {};
  seen.engine = parameters->engine;
  seen.community = OctetText(ber::BytesOf(parameters->user));
  return behindVersion.subspan(parameters->length);
}

/// Nothing where the PDU is encrypted.
Bytes PduInClear(Bytes scopedPdu) {
  auto scoped = ber::TakeContent(ber::kSequence, scopedPdu);
  if (!scoped || !ber::TakeElement(*scoped) || !ber::TakeElement(*scoped)) return {};
  return *scoped;
}

std::string HintOfOther(Bytes octets) {
  if (octets.empty()) return "It is empty.";
  const auto begins = [&](std::initializer_list<std::uint8_t> begin) {
    return octets.size() >= begin.size() && std::equal(begin.begin(), begin.end(), octets.begin());
  };
  if (octets.size() > 2 && octets[0] == '<' && octets[1] >= '0' && octets[1] <= '9') {
    return "It looks like a syslog message.";
  }
  if (begins({0, 5}) || begins({0, 9}) || begins({0, 10})) return "It looks like NetFlow or IPFIX.";
  if (begins({0x16, 0xFE})) return "It looks like DTLS: SNMP over TLS is not received.";
  return fmt::format("It begins with the octet 0x{:02X}; an SNMP message begins with 0x30.",
                     octets[0]);
}

std::string HintOf(const Datagram& datagram, Outcome outcome, const SeenDatagram& seen) {
  switch (outcome) {
    case Outcome::kNotSnmp:
      return HintOfOther(datagram.bytes);
    case Outcome::kTruncated:
      return fmt::format("{} octets came, and the message says that it is longer.",
                         datagram.bytes.size());
    case Outcome::kUnknownEngine:
      if (!seen.engine.empty()) return "";
      return "A sender of informs asks for the engine ID; the inform itself comes next.";
    default:
      return "";
  }
}

}  // namespace

SeenDatagram DescribeDatagram(const Datagram& datagram, Outcome outcome, std::string_view hint,
                              const Version3Message* decrypted) {
  SeenDatagram seen;
  seen.arrival = std::chrono::system_clock::now();
  seen.outcome = outcome;
  AddressText(datagram.peer, seen.sender);
  MessageFrame frame;
  if (ReadFrame(datagram.bytes, frame) == Outcome::kAccepted) {
    seen.version = NumberOf(frame.version);
    Bytes pdu;
    if (frame.version == MessageFrame::kVersion3) {
      pdu = PduInClear(DescribeVersion3(frame.behindVersion, seen));
      if (decrypted != nullptr) pdu = decrypted->pdu;
    } else if (const auto community = ber::TakeElement(frame.behindVersion)) {
      seen.community = OctetText(community->content);
      pdu = frame.behindVersion;
    }
    seen.notification = NotificationOf(pdu, datagram.peer);
  }
  seen.hint = hint.empty() ? HintOf(datagram, outcome, seen) : std::string(hint);
  return seen;
}

}  // namespace sentrel
