#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "snmp/listener_counters.h"
#include "snmp/peer_address.h"
#include "snmp/repeated_informs.h"
#include "trap/arrived_trap.h"

namespace sentrel {

/// Takes a notification, leaving any other trap in its place, and returns true; or leaves it and
/// returns false.
using NotificationSink = std::function<bool(ArrivedTrap&)>;
/// Sends an answer; returns whether that went well.
using AnswerSender = std::function<bool(const Peer&, std::span<const std::uint8_t>)>;

/// kQueueFull where the sink leaves the trap.
Outcome HandOn(const NotificationSink& sink, ArrivedTrap& trap);

/// Each inform is handed on once and answered as often as it comes: its sender sends it again until
/// it has an answer. One that the sink leaves is not answered, so that it comes again. Belongs to
/// one thread.
class InformAnswers {
 public:
  /// The sink must outlive this.
  explicit InformAnswers(const NotificationSink& sink) : sink_(sink) {}

  /// Hands the inform on unless it was taken before. Whatever comes of it but kQueueFull, the
  /// inform is to be answered.
  Outcome HandOnOnce(const InformIdentity& inform, ArrivedTrap& trap);

  /// `send` sends the answer and returns whether that went well.
  template <typename Send>
  void Answer(Send&& send) {
    if (send()) ++answered_;
  }
  std::uint64_t Answered() const { return answered_; }

 private:
  const NotificationSink& sink_;
  RepeatedInforms taken_;
  std::uint64_t answered_ = 0;
};

}  // namespace sentrel
