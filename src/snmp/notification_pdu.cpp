#include "snmp/notification_pdu.h"

#include <string>

#include "snmp/binding_reader.h"

namespace sentrel {
namespace {

using ber::Bytes;

std::optional<NotificationPdu> ReadVersion2(std::uint8_t tag, Bytes content) {
  NotificationPdu pdu{
      .tag = tag, .requestId = {}, .errorStatus = {}, .errorIndex = {}, .bindings = {}};
  for (Bytes* number : {&pdu.requestId, &pdu.errorStatus, &pdu.errorIndex}) {
    const auto read = ber::TakeContent(ber::kInteger, content);
    if (!read) return std::nullopt;
    *number = *read;
  }
  const auto bindings = ber::TakeContent(ber::kSequence, content);
  if (!bindings) return std::nullopt;
  pdu.bindings = *bindings;
  return pdu;
}

std::optional<NotificationPdu> ReadVersion1(Bytes content) {
  Bytes rest = content;
  for (int part = 0; part < 5; ++part) {
    if (!ber::TakeElement(rest)) return std::nullopt;
  }
  if (!ber::TakeContent(ber::kSequence, rest)) return std::nullopt;
  return NotificationPdu{.tag = ber::kTrapV1,
                         .requestId = {},
                         .errorStatus = {},
                         .errorIndex = {},
                         .bindings = content};
}

}  // namespace

std::optional<NotificationPdu> ReadPdu(std::span<const std::uint8_t> pdu) {
  const auto element = ber::TakeElement(pdu);
  if (!element) return std::nullopt;
  switch (element->FirstTag()) {
    case ber::kTrapV1:
      return ReadVersion1(element->content);
    case ber::kInform:
    case ber::kTrapV2:
      return ReadVersion2(element->FirstTag(), element->content);
    default:
      return std::nullopt;
  }
}

void AssignTrap(const NotificationPdu& pdu, const Peer& peer, std::string_view community,
                Bytes message, const TrapEnvelope& envelope, ArrivedTrap& trap) {
  std::string sourceAddress;
  AddressText(peer, sourceAddress);
  trap.Assign({.sourceAddress = sourceAddress,
               .community = community,
               .message = ber::TextOf(message),
               .bindings = ber::TextOf(pdu.bindings),
               .readBindings = pdu.tag == ber::kTrapV1 ? &ReadVersion1Pdu : &ReadBindings,
               .envelope = envelope});
}

}  // namespace sentrel
