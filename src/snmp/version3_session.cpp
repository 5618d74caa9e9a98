#include "snmp/version3_session.h"

#include <net-snmp/library/large_fd_set.h>
#include <net-snmp/library/snmpUDPDomain.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace sentrel {
namespace {

/// The library only asks whether its descriptor is ready: it neither reads nor writes it.
constexpr int kToken = 0;
constexpr unsigned kLargestMessage = 65'507;

Outcome OutcomeOfError(int error) {
  switch (error) {
    case SNMPERR_BAD_VERSION:
      return Outcome::kUnsupportedVersion;
    case SNMPERR_USM_UNKNOWNENGINEID:
    case SNMPERR_UNKNOWN_ENG_ID:
      return Outcome::kUnknownEngine;
    case SNMPERR_USM_UNKNOWNSECURITYNAME:
    case SNMPERR_UNKNOWN_USER_NAME:
      return Outcome::kUnknownUser;
    case SNMPERR_USM_UNSUPPORTEDSECURITYLEVEL:
    case SNMPERR_UNSUPPORTED_SEC_LEVEL:
      return Outcome::kUnsupportedLevel;
    case SNMPERR_USM_AUTHENTICATIONFAILURE:
    case SNMPERR_AUTHENTICATION_FAILURE:
      return Outcome::kWrongDigest;
    case SNMPERR_USM_DECRYPTIONERROR:
    case SNMPERR_DECRYPTION_ERR:
      return Outcome::kNotDecrypted;
    case SNMPERR_USM_NOTINTIMEWINDOW:
    case SNMPERR_NOT_IN_TIME_WINDOW:
      return Outcome::kNotInTimeWindow;
    case SNMPERR_JUST_A_CONTEXT_PROBE:
      return Outcome::kUnsupportedPdu;
    default:
      return Outcome::kMalformed;
  }
}

/// The socket is not the library's.
int LeaveOpen(netsnmp_transport* transport) {
  transport->sock = -1;
  return 0;
}

}  // namespace

Version3Session::Version3Session(Version3Guard& guard, Taker take, AnswerSender reply)
    : guard_(guard), take_(std::move(take)), reply_(std::move(reply)) {
  netsnmp_session settings;
  snmp_sess_init(&settings);
  settings.version = SNMP_DEFAULT_VERSION;
  settings.community_len = SNMP_DEFAULT_COMMUNITY_LEN;
  settings.isAuthoritative = SNMP_SESS_UNKNOWNAUTH;
  settings.callback = &OnMessage;
  settings.callback_magic = this;
  session_ = snmp_sess_add(&settings, MakeTransport(), nullptr, &AfterParse);
  if (session_ == nullptr) throw std::bad_alloc();
  netsnmp_large_fd_set_init(&ready_, FD_SETSIZE);
}

Version3Session::~Version3Session() {
  snmp_sess_close(session_);
  netsnmp_large_fd_set_cleanup(&ready_);
}

netsnmp_transport* Version3Session::MakeTransport() {
  // Allocated and freed as the library does it.
  auto* transport = static_cast<netsnmp_transport*>(std::calloc(1, sizeof(netsnmp_transport)));
  if (transport == nullptr) throw std::bad_alloc();
  transport->domain = netsnmpUDPDomain;
  transport->domain_length = static_cast<int>(netsnmpUDPDomain_len);
  transport->sock = kToken;
  transport->msgMaxSize = kLargestMessage;
  const Tag tag{this};
  transport->data = netsnmp_memdup(&tag, sizeof tag);
  transport->data_length = sizeof tag;
  transport->f_recv = &Receive;
  transport->f_send = &Transmit;
  transport->f_close = &LeaveOpen;
  return transport;
}

Version3Session& Version3Session::Owner(const netsnmp_transport* transport) {
  return *static_cast<const Tag*>(transport->data)->owner;
}

Outcome Version3Session::Parse(const Datagram& datagram) {
  current_ = &datagram;
  outcome_ = Outcome::kMalformed;
  taken_ = false;
  guard_.Expect(datagram.peer);
  netsnmp_large_fd_setfd(kToken, &ready_);
  snmp_sess_read2(session_, &ready_);
  const bool isRefusedByLibrary = guard_.Passed() != nullptr && !taken_ && !guard_.Refusal();
  if (isRefusedByLibrary) {
    const Outcome outcome = take_(*guard_.Passed(), nullptr);
    if (outcome != Outcome::kUnsupportedPdu) outcome_ = outcome;
  }
  current_ = nullptr;
  return guard_.Refusal().value_or(outcome_);
}

int Version3Session::Receive(netsnmp_transport* transport, void* buffer, int size, void** opaque,
                             int* opaque_length) {
  const Datagram& datagram = *Owner(transport).current_;
  const auto bytes = datagram.bytes.first(std::min<std::size_t>(datagram.bytes.size(), size));
  std::memcpy(buffer, bytes.data(), bytes.size());
  // Freed by the library, with the PDU.
  *opaque = netsnmp_memdup(&datagram.peer, sizeof datagram.peer);
  *opaque_length = *opaque == nullptr ? 0 : sizeof datagram.peer;
  return static_cast<int>(bytes.size());
}

int Version3Session::Transmit(netsnmp_transport* transport, const void* bytes, int size,
                              void** opaque, int* opaque_length) {
  if (*opaque == nullptr || *opaque_length != sizeof(Peer)) return -1;
  const auto* begin = static_cast<const std::uint8_t*>(bytes);
  const bool sent = Owner(transport).reply_(*static_cast<const Peer*>(*opaque),
                                            {begin, static_cast<std::size_t>(size)});
  return sent ? size : -1;
}

int Version3Session::AfterParse(netsnmp_session* session, netsnmp_pdu*, int error) {
  auto& self = *static_cast<Version3Session*>(session->callback_magic);
  if (error == SNMPERR_GENERR) error = session->s_snmp_errno;
  self.outcome_ = error == SNMPERR_SUCCESS ? Outcome::kUnsupportedPdu : OutcomeOfError(error);
  return 1;
}

int Version3Session::OnMessage(int operation, netsnmp_session* session, int, netsnmp_pdu* pdu,
                               void* owner) {
  // The library also shows messages that failed authentication: those carry an error.
  const bool genuine = session->s_snmp_errno == SNMPERR_SUCCESS;
  auto& self = *static_cast<Version3Session*>(owner);
  const Version3Message* const message = self.guard_.Passed();
  if (operation == NETSNMP_CALLBACK_OP_RECEIVED_MESSAGE && genuine && message != nullptr) {
    self.taken_ = true;
    self.outcome_ = self.take_(*message, pdu);
  }
  return 1;
}

bool Version3Session::Answer(netsnmp_pdu& inform) {
  netsnmp_pdu* response = snmp_clone_pdu(&inform);
  if (response == nullptr) return false;
  response->command = SNMP_MSG_RESPONSE;
  response->errstat = 0;
  response->errindex = 0;
  const bool left = snmp_sess_send(session_, response) != 0;
  if (!left) snmp_free_pdu(response);
  return left;
}

}  // namespace sentrel
