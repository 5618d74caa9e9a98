#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "platform/arrived_trap.h"
#include "snmp/datagram.h"
#include "snmp/listener_counters.h"
#include "snmp/net_snmp.h"
#include "snmp/version3_guard.h"

namespace sentrel {

/// Turns datagrams into traps: plain ones by TakePlainTrap, all others with the SNMP library's own
/// engine, which decodes, authenticates, decrypts, answers informs and engine discovery. Belongs to
/// one thread; needs a living SnmpLibrary.
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

  /// A plain trap is read without the library's help.
  Outcome Parse(const Datagram& datagram);
  /// The library's own reading of any message, which Parse must agree with.
  Outcome ParseByLibrary(const Datagram& datagram);

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
  Outcome Handle(netsnmp_pdu& pdu);
  void Acknowledge(netsnmp_pdu& inform);

  Version3Guard& guard_;
  const Sink sink_;
  const Reply reply_;
  /// One session outside the library's list, whose calls are not safe among threads.
  void* session_ = nullptr;
  netsnmp_large_fd_set ready_;
  const Datagram* current_ = nullptr;
  ArrivedTrap plain_;
  Outcome outcome_ = Outcome::kMalformed;
  std::uint64_t answeredInforms_ = 0;
};

}  // namespace sentrel
