#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "snmp/community_message.h"
#include "snmp/datagram.h"
#include "snmp/listener_counters.h"
#include "snmp/net_snmp.h"
#include "snmp/repeated_informs.h"
#include "snmp/version3_guard.h"
#include "trap/arrived_trap.h"

namespace sentrel {

/// Turns datagrams into traps, and answers informs: of versions 1 and 2c by itself, of version 3
/// with the SNMP library's engine, which authenticates, decrypts and answers engine discovery. An
/// inform that is sent again is answered again and handed on once. Belongs to one thread; needs a
/// living SnmpLibrary.
class NotificationParser {
 public:
  /// Takes a notification, leaving any other trap in its place, and returns true; or leaves it and
  /// returns false. An inform that is not taken is not acknowledged, so that its sender tries
  /// again.
  using Sink = std::function<bool(ArrivedTrap&)>;
  /// Sends an answer; returns whether that went well.
  using Reply = std::function<bool(const Peer&, std::span<const std::uint8_t>)>;

  /// Throws std::bad_alloc when the library has no session to give. The guard must outlive this.
  NotificationParser(Version3Guard& guard, Sink sink, Reply reply);
  ~NotificationParser();
  NotificationParser(const NotificationParser&) = delete;
  NotificationParser& operator=(const NotificationParser&) = delete;

  Outcome Parse(const Datagram& datagram);

  std::uint64_t AnsweredInforms() const { return answeredInforms_; }

 private:
  /// What a transport carries, in memory that the library frees.
  struct Tag {
    NotificationParser* owner;
  };
  static NotificationParser& Owner(const netsnmp_transport* transport);
  // What the library calls.
  static int Receive(netsnmp_transport* transport, void* buffer, int size, void** opaque,
                     int* opaque_length);
  static int Transmit(netsnmp_transport* transport, const void* bytes, int size, void** opaque,
                      int* opaque_length);
  static int AfterParse(netsnmp_session* session, netsnmp_pdu* pdu, int error);
  static int OnMessage(int operation, netsnmp_session* session, int request, netsnmp_pdu* pdu,
                       void* parser);

  netsnmp_transport* MakeTransport();
  Outcome TakeCommunityMessage(const CommunityMessage& message, const Peer& peer);
  Outcome ParseVersion3(const Datagram& datagram);
  /// The library answers an inform by its own PDU, null where it could not read that.
  Outcome TakeVersion3Message(const Version3Message& message, netsnmp_pdu* answerable);
  Outcome HandOn(ArrivedTrap& trap);
  /// Whatever comes of it but kQueueFull, the inform is to be answered.
  Outcome HandOnOnce(const InformIdentity& inform, RepeatedInforms& taken, ArrivedTrap& trap);
  void Acknowledge(netsnmp_pdu& inform);

  Version3Guard& guard_;
  const Sink sink_;
  const Reply reply_;
  /// One session outside the library's list, whose calls are not safe among threads.
  void* session_ = nullptr;
  netsnmp_large_fd_set ready_;
  const Datagram* current_ = nullptr;
  ArrivedTrap trap_;
  /// Apart, so that nobody without a key can push those with one out of memory.
  RepeatedInforms communityInforms_;
  RepeatedInforms version3Informs_;
  Outcome outcome_ = Outcome::kMalformed;
  bool taken_ = false;
  std::uint64_t answeredInforms_ = 0;
};

}  // namespace sentrel
