#pragma once

#include <functional>

#include "snmp/datagram.h"
#include "snmp/inform_answers.h"
#include "snmp/net_snmp.h"
#include "snmp/version3_guard.h"

namespace sentrel {

/// Version 3 messages on their way through the SNMP library, which authenticates, decrypts and
/// answers the discovery of its engine. The guard decides what passes. Belongs to one thread; needs
/// a living SnmpLibrary.
class Version3Session {
 public:
  /// What has passed the guard. The library answers an inform by its own PDU, null where it could
  /// not read that.
  using Taker = std::function<Outcome(const Version3Message&, netsnmp_pdu* answerable)>;

  /// Throws std::bad_alloc when the library has no session to give. The guard must outlive this.
  Version3Session(Version3Guard& guard, Taker take, AnswerSender reply);
  ~Version3Session();
  Version3Session(const Version3Session&) = delete;
  Version3Session& operator=(const Version3Session&) = delete;

  /// Calls the taker where the message passes. What becomes of a message that the library could not
  /// read, and the taker neither, is kMalformed or what the library says.
  Outcome Parse(const Datagram& datagram);

  /// Answers the inform that the taker has in hand. Returns whether the answer left.
  bool Answer(netsnmp_pdu& inform);

 private:
  /// What a transport carries, in memory that the library frees.
  struct Tag {
    Version3Session* owner;
  };
  static Version3Session& Owner(const netsnmp_transport* transport);
  // What the library calls.
  static int Receive(netsnmp_transport* transport, void* buffer, int size, void** opaque,
                     int* opaque_length);
  static int Transmit(netsnmp_transport* transport, const void* bytes, int size, void** opaque,
                      int* opaque_length);
  static int AfterParse(netsnmp_session* session, netsnmp_pdu* pdu, int error);
  static int OnMessage(int operation, netsnmp_session* session, int request, netsnmp_pdu* pdu,
                       void* owner);

  netsnmp_transport* MakeTransport();

  Version3Guard& guard_;
  const Taker take_;
  const AnswerSender reply_;
  /// Outside the library's list of sessions, whose calls are not safe among threads.
  void* session_ = nullptr;
  netsnmp_large_fd_set ready_;
  const Datagram* current_ = nullptr;
  Outcome outcome_ = Outcome::kMalformed;
  bool taken_ = false;
};

}  // namespace sentrel
