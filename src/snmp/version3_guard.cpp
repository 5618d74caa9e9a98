#include "snmp/version3_guard.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

#include "snmp/ber.h"
#include "snmp/engine_state.h"
#include "snmp/odd_values.h"
#include "snmp/version3_decryption.h"
#include "snmp/version3_hint.h"

namespace sentrel {
namespace {

snmp_secmod_def& UserSecurityModel() {
  return *find_sec_mod(SNMP_SEC_MODEL_USM);
}

/// From msgSecurityParameters on.
std::span<const std::uint8_t> Rest(const snmp_secmod_incoming_params& message) {
  return {message.secParams, message.wholeMsg + message.wholeMsgLen};
}

/// A report is made from what the message says of itself.
void TellLibrary(const snmp_secmod_incoming_params& message, const UsmParameters& parameters) {
  std::memcpy(message.secEngineID, parameters.engine.data(), parameters.engine.size());
  *message.secEngineIDLen = parameters.engine.size();
  std::memcpy(message.secName, parameters.user.c_str(), parameters.user.size() + 1);
  *message.secNameLen = parameters.user.size();
  const bool asked = (message.msg_flags & SNMP_MSG_FLAG_RPRT_BIT) != 0;
  if (!asked || message.secLevel == SNMP_SEC_LEVEL_AUTHPRIV) return;
  *message.scopedPdu = message.secParams + parameters.length;
  *message.scopedPduLen = Rest(message).size() - parameters.length;
}

/// RFC 3412, section 7.1, step 3: where the PDU cannot be read, the flag decides.
bool IsReportAskedFor(const netsnmp_pdu& pdu) {
  return SNMP_CMD_CONFIRMED(pdu.command) ||
         (pdu.command == 0 && (pdu.flags & SNMP_MSG_FLAG_RPRT_BIT) != 0);
}

/// The library has read the parameters once more.
bool SaysTheSame(const snmp_secmod_incoming_params& message, const UsmParameters& parameters) {
  return std::string_view(reinterpret_cast<const char*>(message.secEngineID),
                          *message.secEngineIDLen) == parameters.engine &&
         std::string_view(message.secName, *message.secNameLen) == parameters.user;
}

/// RFC 3411, section 5. A message that asks for the engine ID has an empty one.
constexpr std::size_t kShortestEngineId = 5;

/// RFC 3414, section 6.3.2: the digest is made with zeros in its own place.
bool IsDigestRight(const usmUser& user, const UsmParameters& parameters,
                   const snmp_secmod_incoming_params& message) {
  std::vector<std::uint8_t> whole(message.wholeMsg, message.wholeMsg + message.wholeMsgLen);
  const std::size_t offset = message.secParams - message.wholeMsg + parameters.digestOffset;
  std::fill_n(whole.data() + offset, parameters.digest.size(), std::uint8_t{0});
  return sc_check_keyed_hash(user.authProtocol, user.authProtocolLen, user.authKey, user.authKeyLen,
                             whole.data(), whole.size(), parameters.digest.data(),
                             parameters.digest.size()) == SNMPERR_SUCCESS;
}

/// The library refuses moments before the one that it remembers.
void MakeLibraryForget(const std::string& engine) {
  set_enginetime(reinterpret_cast<const u_char*>(engine.data()), static_cast<u_int>(engine.size()),
                 0, 0, 1);
}

}  // namespace

Version3Guard* Version3Guard::current_ = nullptr;

Version3Guard::Version3Guard(Version3Users users, Version3UserKeeper& keeper, ReplayCheck& replays,
                             std::function<void()> heard)
    : library_(UserSecurityModel()),
      original_(library_),
      users_(std::move(users)),
      keeper_(keeper),
      replays_(replays),
      heard_(std::move(heard)) {
  current_ = this;
  library_.decode = &Decode;
  library_.handle_report = &Report;
  keptUsers_.Replace(keeper_.Keyed(), OwnEngineId());
}

Version3Guard::~Version3Guard() {
  library_ = original_;
  current_ = nullptr;
}

void Version3Guard::TakeChanges() {
  if (!keeper_.TakeChanged()) return;
  lent_.reset();
  keptUsers_.Replace(keeper_.Keyed(), OwnEngineId());
  for (const std::string& engine : keeper_.TakeForgotten()) {
    if (engine == OwnEngineId()) continue;
    replays_.Forget(engine);
    MakeLibraryForget(engine);
    heard_();
  }
}

void Version3Guard::Expect(const Peer& peer) {
  lent_.reset();
  peer_ = &peer;
  refusal_.reset();
  refused_.reset();
  repeated_ = false;
  authentic_.reset();
  passed_ = false;
}

int Version3Guard::Decode(snmp_secmod_incoming_params* message) {
  return current_->Check(*message);
}

void Version3Guard::Report(session_list* list, netsnmp_transport* transport,
                           netsnmp_session* session, int error, netsnmp_pdu* pdu) {
  if (!IsReportAskedFor(*pdu) || !current_->MayAnswer()) return;
  current_->original_.handle_report(list, transport, session, error, pdu);
}

Authentication Version3Guard::AuthenticationOf(const UsmParameters& parameters) const {
  const auto told = std::ranges::find_if(users_.Descriptions(), [&](const Version3User& user) {
    return user.name == parameters.user && user.engine == parameters.engine;
  });
  if (told != users_.Descriptions().end()) return told->authentication;
  if (const auto* const kept = keptUsers_.Find(parameters.engine, parameters.user)) {
    return DescriptionOf(*kept->keys).authentication;
  }
  const KeyedUser* const user = keptUsers_.FindForAny(parameters.user);
  return user == nullptr ? Authentication::kNone : user->user.authentication;
}

std::vector<Version3User> Version3Guard::KnownUsers() const {
  std::vector<Version3User> users = users_.Descriptions();
  for (KeyedUser& kept : keeper_.Keyed()) users.push_back(std::move(kept.user));
  return users;
}

/// Master keys are known of the keeper's users alone.
std::string Version3Guard::HintOfDecryption(const UsmParameters& parameters) const {
  for (const KeyedUser& kept : keeper_.Keyed()) {
    const Version3User& user = kept.user;
    if (user.name != parameters.user) continue;
    if (!user.engine.empty() && user.engine != parameters.engine) continue;
    return HintOfPrivacy(OtherPrivacyOf(kept, parameters, encrypted_), user.privacy);
  }
  return "";
}

std::string Version3Guard::Hint(Outcome outcome) const {
  if (!refused_) return "";
  switch (outcome) {
    case Outcome::kWrongDigest:
      return HintOfDigest(refused_->digest.size(), AuthenticationOf(*refused_));
    case Outcome::kNotDecrypted:
      return HintOfDecryption(*refused_);
    case Outcome::kUnknownUser:
    case Outcome::kUnknownEngine:
      return HintOfUser(refused_->user, KnownUsers());
    case Outcome::kNotInTimeWindow:
      return HintOfMoment(refused_->moment, replays_.NewestOf(refused_->engine));
    default:
      return "";
  }
}

bool Version3Guard::MayAnswer() {
  return answers_.Allows(*peer_, AnswerLimit::Clock::now());
}

int Version3Guard::Refuse(Outcome outcome, int error) {
  refusal_ = outcome;
  return error;
}

int Version3Guard::Check(snmp_secmod_incoming_params& message) {
  const auto parameters = ReadUsmParameters(Rest(message));
  if (!parameters) return Refuse(Outcome::kMalformed, SNMPERR_USM_PARSEERROR);
  const int error = CheckParameters(*parameters, message);
  if (error != SNMPERR_SUCCESS) {
    refused_ = parameters;
    const auto data = Rest(message).subspan(parameters->length);
    encrypted_.assign(data.begin(), data.end());
  }
  return error;
}

int Version3Guard::CheckParameters(const UsmParameters& parameters,
                                   snmp_secmod_incoming_params& message) {
  if (const int error = CheckSender(parameters, message)) {
    TellLibrary(message, parameters);
    return error;
  }
  if (const int error = original_.decode(&message)) return error;
  if (!SaysTheSame(message, parameters)) {
    return Refuse(Outcome::kMalformed, SNMPERR_USM_PARSEERROR);
  }
  const bool isKept = KeepMessage(message, parameters.user);
  if (!isKept && message.secLevel == SNMP_SEC_LEVEL_AUTHPRIV) {
    return Refuse(Outcome::kNotDecrypted, SNMPERR_USM_DECRYPTIONERROR);
  }
  if (message.secLevel != SNMP_SEC_LEVEL_NOAUTH) {
    authentic_ = parameters;
    if (const int error = CheckFreshness()) return error;
  }
  passed_ = isKept;
  return SNMPERR_SUCCESS;
}

int Version3Guard::CheckSender(const UsmParameters& parameters,
                               const snmp_secmod_incoming_params& message) {
  const SecurityLevel* const least = users_.Find(parameters.engine, parameters.user);
  if (least == nullptr) return CheckKeptUser(parameters, message);
  toldEngine_ = parameters.engine;
  return CheckLevel(*least, message.secLevel);
}

int Version3Guard::CheckKeptUser(const UsmParameters& parameters,
                                 const snmp_secmod_incoming_params& message) {
  if (const auto* const known = keptUsers_.Find(parameters.engine, parameters.user)) {
    Lend(*known);
    return CheckLevel(known->leastLevel, message.secLevel);
  }
  const bool isEngine = parameters.engine.size() >= kShortestEngineId;
  if (const auto* const user = isEngine ? keptUsers_.FindForAny(parameters.user) : nullptr) {
    return TryAnyEngine(*user, parameters, message);
  }
  const bool isUserMissing = users_.HasEngine(parameters.engine) ||
                             keptUsers_.HasEngine(parameters.engine) ||
                             (isEngine && keptUsers_.HasUserForAny());
  if (isUserMissing) return Refuse(Outcome::kUnknownUser, SNMPERR_USM_UNKNOWNSECURITYNAME);
  return Refuse(Outcome::kUnknownEngine, SNMPERR_USM_UNKNOWNENGINEID);
}

int Version3Guard::CheckLevel(SecurityLevel least, int level) {
  if (level >= static_cast<int>(least)) return SNMPERR_SUCCESS;
  return Refuse(Outcome::kLevelTooLow, SNMPERR_USM_UNSUPPORTEDSECURITYLEVEL);
}

int Version3Guard::TryAnyEngine(const KeyedUser& user, const UsmParameters& parameters,
                                const snmp_secmod_incoming_params& message) {
  if (const int error = CheckLevel(user.user.leastLevel, message.secLevel)) return error;
  const auto refuse = [this] {
    return Refuse(Outcome::kWrongDigest, SNMPERR_USM_AUTHENTICATIONFAILURE);
  };
  if (parameters.digest.size() != DigestLength(user.user.authentication)) return refuse();
  const auto now = AnswerLimit::Clock::now();
  if (!failedTries_.HasRoom(*peer_, now)) return refuse();
  OwnedUsmUser keys = Localize(user, parameters.engine);
  if (!keys || !IsDigestRight(*keys, parameters, message)) {
    failedTries_.Allows(*peer_, now);
    return refuse();
  }
  Lend(keptUsers_.Learn(user, parameters.engine, std::move(keys)));
  return SNMPERR_SUCCESS;
}

void Version3Guard::Lend(const LocalizedUsers::Entry& entry) {
  lent_.emplace(*entry.keys);
  toldEngine_ = entry.toldEngine;
}

bool Version3Guard::KeepMessage(const snmp_secmod_incoming_params& message,
                                const std::string& user) {
  ber::Bytes bytes(*message.scopedPdu, *message.scopedPduLen);
  auto scoped = ber::TakeContent(ber::kSequence, bytes);
  const auto engine = scoped ? ber::TakeContent(ber::kOctets, *scoped) : std::nullopt;
  if (!engine || !ber::TakeContent(ber::kOctets, *scoped)) return false;
  message_.user = user;
  message_.contextEngine = ber::TextOf(*engine);
  message_.level = static_cast<SecurityLevel>(message.secLevel);
  message_.pduOffset = scoped->data() - *message.scopedPdu;
  u_char* const begin = *message.scopedPdu + message_.pduOffset;
  message_.scopedPdu.assign(*message.scopedPdu, begin + scoped->size());
  NeutralizeOddValues({begin, scoped->size()});
  return true;
}

int Version3Guard::CheckFreshness() {
  switch (replays_.Judge(authentic_->engine, authentic_->moment, authentic_->digest,
                         ReplayCheck::Clock::now())) {
    case Freshness::kStale:
      return Refuse(Outcome::kNotInTimeWindow, SNMPERR_USM_NOTINTIMEWINDOW);
    case Freshness::kRepeated:
      repeated_ = true;
      break;
    case Freshness::kFresh:
      break;
  }
  return SNMPERR_SUCCESS;
}

void Version3Guard::Take() {
  if (!authentic_ || repeated_) return;
  replays_.Take(authentic_->engine, authentic_->moment, authentic_->digest,
                ReplayCheck::Clock::now());
  keeper_.NoteHeard(authentic_->user, toldEngine_);
  heard_();
}

}  // namespace sentrel
