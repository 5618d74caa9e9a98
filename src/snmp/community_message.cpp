#include "snmp/community_message.h"

#include <algorithm>

namespace sentrel {
namespace {

using ber::Bytes;

constexpr std::uint8_t kIndefiniteLength = 0x80;

/// Nothing where the number has no octets, or is none that a version can have.
std::optional<int> Version(Bytes number) {
  if (number.empty()) return std::nullopt;
  const Bytes inFront = number.first(number.size() - 1);
  const bool isSmall = std::ranges::all_of(inFront, [](std::uint8_t octet) { return octet == 0; });
  return isSmall ? number.back() : -1;
}

bool IsPdu(std::uint8_t tag) {
  return tag >= ber::kGetRequest && tag <= ber::kReport;
}

}  // namespace

Outcome ReadFrame(Bytes datagram, MessageFrame& frame) {
  if (datagram.empty() || datagram[0] != ber::kSequence) return Outcome::kNotSnmp;
  Bytes rest = datagram;
  const auto content = ber::TakeContent(ber::kSequence, rest);
  if (!content) {
    const bool endless = datagram.size() >= 2 && datagram[1] == kIndefiniteLength;
    return endless ? Outcome::kMalformed : Outcome::kTruncated;
  }
  frame.whole = datagram.first(datagram.size() - rest.size());
  frame.behindVersion = *content;
  const auto number = ber::TakeContent(ber::kInteger, frame.behindVersion);
  const auto version = number ? Version(*number) : std::nullopt;
  if (!version) return Outcome::kMalformed;
  frame.version = *version;
  const bool known = frame.version == MessageFrame::kVersion1 ||
                     frame.version == MessageFrame::kVersion2c ||
                     frame.version == MessageFrame::kVersion3;
  return known ? Outcome::kAccepted : Outcome::kUnsupportedVersion;
}

Outcome ReadCommunityMessage(const MessageFrame& frame, CommunityMessage& message) {
  Bytes rest = frame.behindVersion;
  const auto community = ber::TakeElement(rest);
  if (!community || rest.empty()) return Outcome::kMalformed;
  const auto pdu = ReadPdu(rest);
  if (pdu) {
    message = {frame.whole, community->content, rest, *pdu};
    return Outcome::kAccepted;
  }
  const bool mayBeNotification =
      rest[0] == ber::kTrapV1 || rest[0] == ber::kInform || rest[0] == ber::kTrapV2;
  return IsPdu(rest[0]) && !mayBeNotification ? Outcome::kUnsupportedPdu : Outcome::kMalformed;
}

std::vector<std::uint8_t> ResponseTo(const CommunityMessage& inform) {
  std::vector<std::uint8_t> response(inform.whole.begin(), inform.whole.end());
  const auto placeOf = [&](Bytes part) {
    return response.begin() + (part.data() - inform.whole.data());
  };
  *placeOf(inform.encodedPdu) = ber::kResponse;
  for (const Bytes number : {inform.pdu.errorStatus, inform.pdu.errorIndex}) {
    std::fill_n(placeOf(number), number.size(), std::uint8_t{0});
  }
  return response;
}

}  // namespace sentrel
