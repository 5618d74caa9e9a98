#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "snmp/answer_limit.h"
#include "snmp/ber.h"
#include "snmp/datagram.h"
#include "snmp/listener_counters.h"
#include "snmp/localized_users.h"
#include "snmp/net_snmp.h"
#include "snmp/replay_check.h"
#include "snmp/usm_parameters.h"
#include "snmp/version3_user_keeper.h"
#include "snmp/version3_users.h"

namespace sentrel {

/// A version 3 message that has passed, as far as a notification needs it.
struct Version3Message {
  std::string user;
  std::string contextEngine;
  SecurityLevel level = SecurityLevel::kNoAuthNoPriv;
  /// In clear, from its tag to its end (RFC 3412, section 6).
  std::vector<std::uint8_t> scopedPdu;
  /// Where in it the PDU begins.
  std::size_t pduOffset = 0;

  /// The PDU, with bytes of no meaning behind it.
  ber::Bytes Pdu() const { return ber::Bytes(scopedPdu).subspan(pduOffset); }
};

/// Stands before and behind the SNMP library's security model (USM, RFC 3414), which decrypts and
/// checks digests, and asks more of a version 3 message than the library does:
/// - it comes from a known user of a known engine. Of others the library would remember the engine,
///   so that anyone could fill its tables with new ones;
/// - it is protected as well as the user's keys allow, or as an authUser line says. The library
///   takes an unprotected message from anyone who knows a user's name;
/// - it is fresh, as ReplayCheck sees it, and is not taken twice;
/// and it limits the answers that a stranger can ask for (AnswerLimit).
///
/// It lends the library the users of the keeper, one for each message. A user of any engine gets
/// the keys of the engine that the message names, and only a right digest makes the guard keep
/// them: what anybody else sends leaves no trace but in the bounded count of failed tries.
///
/// The library has one security model for the process, so one guard at a time. Belongs to the
/// thread that parses.
class Version3Guard {
 public:
  /// Failed tries of users of any engine in each second; some microseconds each.
  static constexpr double kTriesOfOneSource = 1'000;
  static constexpr double kTriesInAll = 10'000;

  /// `heard` is called whenever what the engines have told has changed. The replay check and the
  /// keeper must outlive this.
  Version3Guard(Version3Users users, Version3UserKeeper& keeper, ReplayCheck& replays,
                std::function<void()> heard);
  /// Gives the library back what is its own.
  ~Version3Guard();
  Version3Guard(const Version3Guard&) = delete;
  Version3Guard& operator=(const Version3Guard&) = delete;

  /// Takes over what has changed in the keeper. Not while the library reads a message.
  void TakeChanges();
  /// The library is about to read a message of the peer.
  void Expect(const Peer& peer);
  /// Why the guard refused the message that the library has read; nothing where it did not.
  std::optional<Outcome> Refusal() const { return refusal_; }
  /// What the guard knows beyond the outcome of the message that the library has read, in a
  /// sentence that names no key; often empty. Made when it is asked for, so that a flood costs
  /// nothing.
  std::string Hint(Outcome outcome) const;
  /// Whether the very message was taken before: an inform whose answer was lost, or a recording.
  bool IsRepeated() const { return repeated_; }
  /// What has passed; null where the message did not, or was none of version 3. The library itself
  /// gets a PDU in which odd values are replaced (NeutralizeOddValues): it would refuse the whole
  /// message for one of them, and answers informs.
  const Version3Message* Passed() const { return passed_ ? &message_ : nullptr; }
  /// Whether one more answer may leave that anyone could ask for: a report, or one that was given
  /// before.
  bool MayAnswer();
  /// The message that the library has read is taken. It will not be fresh again.
  void Take();

 private:
  // What the library calls.
  static int Decode(snmp_secmod_incoming_params* message);
  static void Report(session_list* list, netsnmp_transport* transport, netsnmp_session* session,
                     int error, netsnmp_pdu* pdu);

  int Check(snmp_secmod_incoming_params& message);
  int CheckParameters(const UsmParameters& parameters, snmp_secmod_incoming_params& message);
  int CheckSender(const UsmParameters& parameters, const snmp_secmod_incoming_params& message);
  int CheckLevel(SecurityLevel least, int level);
  /// Of the keeper's users.
  int CheckKeptUser(const UsmParameters& parameters, const snmp_secmod_incoming_params& message);
  int TryAnyEngine(const KeyedUser& user, const UsmParameters& parameters,
                   const snmp_secmod_incoming_params& message);
  /// From the files and from the keeper.
  std::vector<Version3User> KnownUsers() const;
  /// Of the user whom the message names.
  Authentication AuthenticationOf(const UsmParameters& parameters) const;
  std::string HintOfDecryption(const UsmParameters& parameters) const;
  void Lend(const LocalizedUsers::Entry& entry);
  int CheckFreshness();
  bool KeepMessage(const snmp_secmod_incoming_params& message, const std::string& user);
  int Refuse(Outcome outcome, int error);

  static Version3Guard* current_;
  snmp_secmod_def& library_;
  const snmp_secmod_def original_;
  const Version3Users users_;
  Version3UserKeeper& keeper_;
  LocalizedUsers keptUsers_;
  ReplayCheck& replays_;
  const std::function<void()> heard_;
  AnswerLimit answers_;
  AnswerLimit failedTries_{kTriesOfOneSource, kTriesInAll};

  // Of the message in hand.
  const Peer* peer_ = nullptr;
  std::optional<Outcome> refusal_;
  bool repeated_ = false;
  /// Where it was refused for what is in there.
  std::optional<UsmParameters> refused_;
  /// Its msgData.
  std::vector<std::uint8_t> encrypted_;
  /// Until the next message, as the answer to an inform needs the keys too.
  std::optional<LentUser> lent_;
  /// Of the user that is lent, as people have told it.
  std::string toldEngine_;
  /// Where its digest has been found right.
  std::optional<UsmParameters> authentic_;
  Version3Message message_;
  bool passed_ = false;
};

}  // namespace sentrel
