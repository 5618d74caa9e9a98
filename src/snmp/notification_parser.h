#pragma once

#include <cstdint>

#include "snmp/community_message.h"
#include "snmp/datagram.h"
#include "snmp/inform_answers.h"
#include "snmp/version3_session.h"
#include "trap/arrived_trap.h"

namespace sentrel {

/// Turns datagrams into traps and has informs answered: versions 1 and 2c by itself, version 3 by
/// way of the SNMP library (Version3Session). Belongs to one thread; needs a living SnmpLibrary.
class NotificationParser {
 public:
  /// Throws std::bad_alloc when the library has no session to give. The guard must outlive this.
  NotificationParser(Version3Guard& guard, NotificationSink sink, AnswerSender reply);
  NotificationParser(const NotificationParser&) = delete;
  NotificationParser& operator=(const NotificationParser&) = delete;

  /// Takes over the users of version 3 that have changed.
  void TakeChanges() { guard_.TakeChanges(); }
  Outcome Parse(const Datagram& datagram);
  /// What the guard has let pass of the datagram that was parsed last; null where that is not of
  /// version 3, or did not pass.
  const Version3Message* PassedVersion3() const { return isVersion3_ ? guard_.Passed() : nullptr; }
  /// What the guard knows of why it refused that datagram, a sentence for people; often nothing.
  std::string Hint(Outcome outcome) const { return isVersion3_ ? guard_.Hint(outcome) : ""; }

  std::uint64_t AnsweredInforms() const {
    return communityInforms_.Answered() + version3Informs_.Answered();
  }

 private:
  Outcome TakeCommunityMessage(const MessageFrame& frame, const CommunityMessage& message,
                               const Datagram& datagram);
  Outcome ParseVersion3(const Datagram& datagram);
  Outcome TakeVersion3Message(const Version3Message& message, netsnmp_pdu* answerable);

  Version3Guard& guard_;
  const NotificationSink sink_;
  const AnswerSender reply_;
  Version3Session session_;
  /// Of the version 3 message in hand.
  const Datagram* datagram_ = nullptr;
  /// Whether the last datagram was one.
  bool isVersion3_ = false;
  ArrivedTrap trap_;
  /// Apart, so that nobody without a key can push those with one out of memory.
  InformAnswers communityInforms_{sink_};
  InformAnswers version3Informs_{sink_};
};

}  // namespace sentrel
