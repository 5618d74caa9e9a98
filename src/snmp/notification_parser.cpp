#include "snmp/notification_parser.h"

#include <utility>

#include "snmp/octet_text.h"

namespace sentrel {

NotificationParser::NotificationParser(Version3Guard& guard, NotificationSink sink,
                                       AnswerSender reply)
    : guard_(guard),
      sink_(std::move(sink)),
      reply_(std::move(reply)),
      session_(
          guard,
          [this](const Version3Message& message, netsnmp_pdu* answerable) {
            return TakeVersion3Message(message, answerable);
          },
          reply_) {}

Outcome NotificationParser::Parse(const Datagram& datagram) {
  isVersion3_ = false;
  MessageFrame frame;
  const Outcome framed = ReadFrame(datagram.bytes, frame);
  if (framed != Outcome::kAccepted) return framed;
  if (frame.version == MessageFrame::kVersion3) {
    return ParseVersion3(
        {.bytes = frame.whole, .peer = datagram.peer, .receivedAt = datagram.receivedAt});
  }
  CommunityMessage message;
  const Outcome read = ReadCommunityMessage(frame, message);
  return read == Outcome::kAccepted ? TakeCommunityMessage(frame, message, datagram) : read;
}

Outcome NotificationParser::TakeCommunityMessage(const MessageFrame& frame,
                                                 const CommunityMessage& message,
                                                 const Datagram& datagram) {
  const Peer& peer = datagram.peer;
  const TrapEnvelope envelope{.version = static_cast<SnmpVersion>(frame.version),
                              .level = SecurityLevel::kNoAuthNoPriv,
                              .receivedAt = datagram.receivedAt};
  AssignTrap(message.pdu, peer, OctetText(message.community), message.whole, envelope, trap_);
  if (!message.pdu.IsInform()) return HandOn(sink_, trap_);
  const InformIdentity identity{.peer = peer,
                                .engine = {},
                                .user = ber::TextOf(message.community),
                                .requestId = ber::TextOf(message.pdu.requestId),
                                .bindings = ber::TextOf(message.pdu.bindings)};
  const Outcome outcome = communityInforms_.HandOnOnce(identity, trap_);
  if (outcome != Outcome::kQueueFull) {
    communityInforms_.Answer([&] { return reply_(peer, ResponseTo(message)); });
  }
  return outcome;
}

Outcome NotificationParser::ParseVersion3(const Datagram& datagram) {
  datagram_ = &datagram;
  isVersion3_ = true;
  return session_.Parse(datagram);
}

Outcome NotificationParser::TakeVersion3Message(const Version3Message& message,
                                                netsnmp_pdu* answerable) {
  const auto pdu = ReadPdu(message.Pdu());
  if (!pdu || pdu->tag == ber::kTrapV1) return Outcome::kUnsupportedPdu;
  const TrapEnvelope envelope{
      .version = SnmpVersion::k3, .level = message.level, .receivedAt = datagram_->receivedAt};
  AssignTrap(*pdu, datagram_->peer, OctetText(ber::BytesOf(message.user)), message.scopedPdu,
             envelope, trap_);
  const InformIdentity identity{.peer = datagram_->peer,
                                .engine = message.contextEngine,
                                .user = message.user,
                                .requestId = ber::TextOf(pdu->requestId),
                                .bindings = ber::TextOf(pdu->bindings)};
  Outcome outcome = Outcome::kRepeated;
  if (!guard_.IsRepeated()) {
    outcome = pdu->IsInform() ? version3Informs_.HandOnOnce(identity, trap_) : HandOn(sink_, trap_);
  }
  if (outcome == Outcome::kQueueFull) return outcome;
  guard_.Take();
  const bool mayAnswer = !guard_.IsRepeated() || guard_.MayAnswer();
  if (pdu->IsInform() && answerable != nullptr && mayAnswer) {
    version3Informs_.Answer([&] { return session_.Answer(*answerable); });
  }
  return outcome;
}

}  // namespace sentrel
