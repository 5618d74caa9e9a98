#include "details/message_parts.h"

namespace sentrel {
namespace {

using ber::Bytes;

/// Cuts a message up from its front.
class Cutter {
 public:
  explicit Cutter(std::string_view message) : message_(ber::BytesOf(message)) {}

  MessageParts Cut(SnmpVersion version) {
    Bytes rest = message_;
    auto content = ber::TakeContent(ber::kSequence, rest);
    if (!content) return parts_;
    auto& first = version == SnmpVersion::k3 ? parts_.contextEngine : parts_.version;
    auto& second = version == SnmpVersion::k3 ? parts_.contextName : parts_.community;
    if (Take(*content, first) && Take(*content, second)) CutPdu(*content);
    return std::move(parts_);
  }

 private:
  std::size_t PlaceOf(Bytes bytes) const {
    return static_cast<std::size_t>(bytes.data() - message_.data());
  }

  bool Take(Bytes& bytes, std::optional<MessagePart>& part) const {
    const std::size_t begin = PlaceOf(bytes);
    const auto element = ber::TakeElement(bytes);
    if (element) part = {{begin, PlaceOf(bytes)}, *element};
    return element.has_value();
  }

  void CutPdu(Bytes bytes) {
    const auto pdu = ber::TakeElement(bytes);
    if (!pdu) return;
    Bytes content = pdu->content;
    parts_.isInform = pdu->FirstTag() == ber::kInform;
    const bool isWhole =
        pdu->FirstTag() == ber::kTrapV1 ? TakeVersion1Head(content) : TakeHead(content);
    const auto list = isWhole ? ber::TakeContent(ber::kSequence, content) : std::nullopt;
    if (!list) return;
    if (pdu->FirstTag() == ber::kTrapV1) parts_.version1Pdu = pdu->content;
    CutBindings(*list);
  }

  bool TakeHead(Bytes& content) {
    std::optional<MessagePart> ignored;
    return Take(content, parts_.requestId) && Take(content, ignored) && Take(content, ignored);
  }

  bool TakeVersion1Head(Bytes& content) {
    return Take(content, parts_.enterprise) && Take(content, parts_.agentAddress) &&
           Take(content, parts_.genericTrap) && Take(content, parts_.specificTrap) &&
           Take(content, parts_.timeStamp);
  }

  void CutBindings(Bytes list) {
    std::size_t begin = PlaceOf(list);
    while (const auto binding = TakeBinding(list)) {
      parts_.bindings.push_back({{begin, PlaceOf(list)}, *binding});
      begin = PlaceOf(list);
    }
    parts_.rest = {begin, begin + list.size()};
  }

  const Bytes message_;
  MessageParts parts_;
};

}  // namespace

MessageParts PartsOf(const ArrivedTrap& trap) {
  return Cutter(trap.Message()).Cut(trap.Envelope().version);
}

}  // namespace sentrel
