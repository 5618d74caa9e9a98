#pragma once

#include <chrono>
#include <functional>
#include <thread>

#include "snmp/datagram_socket.h"
#include "snmp/listener_counters.h"
#include "snmp/notification_parser.h"
#include "snmp/reception_record.h"
#include "snmp/snmp_library.h"
#include "snmp/trap_queue.h"

namespace sentrel {

/// The thread that reads the socket, answers informs and fills the queue, for as long as this
/// object lives. It touches the socket, the SNMP library, the queue, the counters and the
/// record, nothing else. Made and ended on the event loop's thread; the port is known before the
/// thread starts.
class Receiver {
 public:
  static constexpr std::chrono::seconds kLastReading{1};

  /// Takes the descriptor over, and asks for a buffer as DatagramSocket does. Throws
  /// std::system_error when the system has no thread or descriptor to give. Both functions are
  /// called on the receiver thread and must not throw: `setUpLibrary` once, before anything is
  /// read; it takes some milliseconds, for which no window needs to wait. `wake` once the queue has
  /// gone from empty to non-empty, at most once for each batch of datagrams.
  Receiver(int descriptor, int bufferBytes, TrapQueue& queue, SharedCounters& counters,
           ReceptionRecord& record, std::function<SnmpLibrary&()> setUpLibrary,
           std::function<void()> wake);
  /// Ends the thread once it has read what the socket holds, but nothing that arrives from now on.
  /// What has not been read within kLastReading is lost.
  ~Receiver();
  Receiver(const Receiver&) = delete;
  Receiver& operator=(const Receiver&) = delete;

  std::uint16_t Port() const { return listening_.port; }
  /// Without the engine.
  const ListeningFacts& Listening() const { return listening_; }

 private:
  void Run();
  /// Returns how many datagrams it has read.
  std::size_t HandleBatch(NotificationParser& parser);
  Outcome Handle(NotificationParser& parser, const Datagram& datagram);
  void ReadTheRest(NotificationParser& parser);
  bool WaitForDatagrams() const;
  /// Lets datagrams gather, where that is safe and they come in numbers: a wake-up for each would
  /// cost more than the traps themselves.
  void RestAfter(std::size_t datagrams) const;

  DatagramSocket socket_;
  TrapQueue& queue_;
  SharedCounters& counters_;
  ReceptionRecord& record_;
  const std::function<SnmpLibrary&()> setUpLibrary_;
  const std::function<void()> wake_;
  const ListeningFacts listening_;
  const bool mayRest_;
  const int stop_;
  std::thread thread_;
};

}  // namespace sentrel
