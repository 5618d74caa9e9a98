#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "trap/trap.h"
#include "trap/trap_envelope.h"

namespace sentrel {

/// Replaces the trap's lists by the bindings that `encoded` holds.
using BindingReader = void (*)(std::string_view encoded, Trap& trap);

/// What a notification is read from. Everything is copied by whoever takes it.
struct ReceivedMessage {
  std::string_view sourceAddress;
  /// As a text; the security name in version 3.
  std::string_view community;
  /// The whole message of version 1 or 2c; of version 3 the scoped PDU in clear (RFC 3412, section
  /// 6).
  std::string_view message = {};
  /// The part of `message` that the reader knows.
  std::string_view bindings = {};
  BindingReader readBindings = nullptr;
  TrapEnvelope envelope = {};
};

/// A trap as it is handed on. Its sender is known at once; its bindings may stay as they came over
/// the wire until someone wants to read them, which in a storm hardly anyone does. Small, and at
/// most one piece of memory besides, because a storm moves it from thread to thread and from row to
/// row. It may change threads, but belongs to one at a time.
class ArrivedTrap {
 public:
  /// Holds nothing yet.
  ArrivedTrap() = default;
  ArrivedTrap(Trap read);

  /// Replaces the content, using its memory again. The reader may be asked for the bindings on
  /// another thread, and more than once.
  void Assign(const ReceivedMessage& received);

  /// Valid until the content changes.
  std::string_view SourceAddress() const;
  std::string_view Community() const;
  /// ReceivedMessage::message; empty where the trap was never one.
  std::string_view Message() const;
  const TrapEnvelope& Envelope() const { return envelope_; }

  /// Replaces `trap`, whose memory is used again, by all that arrived.
  void Read(Trap& trap) const;

  /// Memory that it occupies, in bytes, to within a few per cent.
  std::size_t Memory() const;

 private:
  /// Source address, community and message, where nobody has read them.
  std::string text_;
  std::uint32_t communityAt_ = 0;
  std::uint32_t messageAt_ = 0;
  std::uint32_t bindingsAt_ = 0;
  std::uint32_t bindingsSize_ = 0;
  TrapEnvelope envelope_;
  BindingReader readBindings_ = nullptr;
  std::shared_ptr<const Trap> read_;
};

}  // namespace sentrel
