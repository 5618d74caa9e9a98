#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "snmp/binding.h"
#include "trap/arrived_trap.h"

namespace sentrel {

/// A run of a message's bytes; empty where a part is in no byte.
struct ByteRange {
  std::size_t begin = 0;
  std::size_t end = 0;

  bool Holds(std::size_t byte) const { return byte >= begin && byte < end; }
  std::size_t Size() const { return end - begin; }
};

/// One element of a message, and where it is.
struct MessagePart {
  ByteRange bytes;
  ber::Element element;
};

/// One binding of a message, and where it and its value are.
struct BindingPart {
  ByteRange bytes;
  Binding binding;
};

/// The message of a trap, cut up but not read: what its version does not have is missing, and so is
/// all that is behind an error. Points into the message.
struct MessageParts {
  std::optional<MessagePart> version;
  std::optional<MessagePart> community;
  // Version 3 (RFC 3412, section 6).
  std::optional<MessagePart> contextEngine;
  std::optional<MessagePart> contextName;
  // RFC 3416, section 3.
  bool isInform = false;
  std::optional<MessagePart> requestId;
  // Version 1 (RFC 1157, section 4.1.6).
  std::optional<MessagePart> enterprise;
  std::optional<MessagePart> agentAddress;
  std::optional<MessagePart> genericTrap;
  std::optional<MessagePart> specificTrap;
  std::optional<MessagePart> timeStamp;
  /// The content of a version 1 PDU; empty in other versions.
  ber::Bytes version1Pdu;

  std::vector<BindingPart> bindings;
  /// The end of the list, where it is no binding.
  ByteRange rest;
};

MessageParts PartsOf(const ArrivedTrap& trap);

}  // namespace sentrel
