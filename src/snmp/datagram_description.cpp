#include "snmp/datagram_description.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "snmp/community_message.h"
#include "snmp/octet_text.h"
#include "snmp/usm_parameters.h"

namespace sentrel {
namespace {

using ber::Bytes;

constexpr std::string_view kTrapOid = "1.3.6.1.6.3.1.1.4.1.0";
/// No datagram holds more octets.
constexpr std::uint64_t kLongestTold = 65'535;
/// The length octet that leaves the end open (X.690, section 8.1.3.6).
constexpr std::uint8_t kIndefinite = 0x80;

/// In the words of people, who count versions from 1 and call the second one 2c.
int NumberOf(int version) {
  return version == MessageFrame::kVersion3 ? 3 : version + 1;
}

std::string NotificationOf(Bytes encodedPdu, const Peer& peer) {
  const auto pdu = ReadPdu(encodedPdu);
  if (!pdu) return "";
  ArrivedTrap arrived;
  AssignTrap(*pdu, peer, "", encodedPdu, {}, arrived);
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

/// The number in two octets, the most significant one first.
std::size_t NumberAt(Bytes octets, std::size_t at) {
  return static_cast<std::size_t>(octets[at]) << 8 | octets[at + 1];
}

bool IsSyslog(Bytes octets) {
  return octets.size() > 2 && octets[0] == '<' && octets[1] >= '0' && octets[1] <= '9';
}

/// Of versions 5 and 9; version 10 is IPFIX (RFC 7011, section 3.1), which tells its length.
bool IsNetFlow(Bytes octets) {
  if (octets.size() < 16) return false;
  const std::size_t count = NumberAt(octets, 2);
  switch (NumberAt(octets, 0)) {
    case 5:
      return octets.size() == 24 + 48 * count;
    case 9:
      return octets.size() >= 20 && count > 0;
    case 10:
      return octets.size() == count;
    default:
      return false;
  }
}

bool IsHttp(Bytes octets) {
  const auto text = ber::TextOf(octets);
  return std::ranges::any_of(std::to_array<std::string_view>({"GET ", "POST ", "PUT ", "HTTP/"}),
                             [&](std::string_view begin) { return text.starts_with(begin); });
}

/// A record of a handshake: TLS 1.x (RFC 8446, section 5.1) or DTLS (RFC 9147, section 4).
bool IsTls(Bytes octets) {
  return octets.size() > 4 && octets[0] == 0x16 && (octets[1] == 0x03 || octets[1] == 0xFE);
}

/// A question and nothing but additional records besides (RFC 1035, section 4.1.1).
bool IsDnsQuery(Bytes octets) {
  return octets.size() > 16 && (octets[2] & 0xF8) == 0 && (octets[3] & 0x4F) == 0 &&
         NumberAt(octets, 4) == 1 && NumberAt(octets, 6) == 0 && NumberAt(octets, 8) == 0;
}

std::string HintOfOther(Bytes octets) {
  if (octets.empty()) return "It is empty.";
  if (IsSyslog(octets)) return "It looks like a syslog message.";
  if (IsNetFlow(octets)) return "It looks like NetFlow or IPFIX.";
  if (IsHttp(octets)) return "It looks like HTTP.";
  if (IsTls(octets)) return "It looks like TLS or DTLS: SNMP over TLS is not received.";
  if (IsDnsQuery(octets)) return "It looks like a DNS query.";
  return fmt::format("It begins with the octet 0x{:02X}; an SNMP message begins with 0x30.",
                     octets[0]);
}

/// Of a message whose outermost length goes beyond its end.
std::string HintOfTruncated(Bytes octets) {
  const std::size_t lengthOctets =
      octets.size() > 1 && octets[1] > 0x80 ? std::size_t{octets[1]} - 0x80 : 0;
  const std::size_t head = 2 + lengthOctets;
  if (octets.size() < head) return "It ends within its own length.";
  std::uint64_t declared = lengthOctets == 0 ? octets[1] : 0;
  for (const std::uint8_t octet : octets.subspan(2, lengthOctets)) {
    if (declared > kLongestTold) break;
    declared = declared << 8 | octet;
  }
  if (declared > kLongestTold) {
    return "It says that it is longer than any datagram can be.";
  }
  return fmt::format("It says that it has {} octets; {} came.", head + declared, octets.size());
}

bool IsEndless(Bytes octets) {
  return octets.size() > 1 && octets[1] == kIndefinite;
}

std::string HintOf(const Datagram& datagram, Outcome outcome, const SeenDatagram& seen) {
  switch (outcome) {
    case Outcome::kNotSnmp:
      return HintOfOther(datagram.bytes);
    case Outcome::kTruncated:
      return HintOfTruncated(datagram.bytes);
    case Outcome::kMalformed:
      if (IsEndless(datagram.bytes)) return "It does not say how long it is.";
      return seen.version ? "What follows the version breaks the rules." : "It names no version.";
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
      if (decrypted != nullptr) pdu = decrypted->Pdu();
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
