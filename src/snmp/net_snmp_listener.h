#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/reception_monitor.h"
#include "platform/snmp.h"
#include "snmp/listener_counters.h"
#include "snmp/reception_record.h"
#include "snmp/sender.h"
#include "snmp/trap_queue.h"
#include "snmp/trap_socket.h"
#include "snmp/version3_user_keeper.h"

namespace sentrel {

class Receiver;
class SnmpLibrary;

struct ListenerOptions {
  /// UDP port; 0 lets the system choose one.
  std::uint16_t port = kTrapPort;
  /// Path of sentrel-port, which opens kTrapPort for a program that may not; empty for none.
  std::string portHelper = {};
  /// Where engine ID, boots count, users and keys of version 3 persist. Made if it is missing;
  /// empty to keep nothing.
  std::string stateFolder = {};
  /// Folders searched for sentrel.conf, separated by colons; empty for the SNMP library's own.
  std::string configurationPath = {};
  QueueLimits queue = {};
  /// Bytes of the socket's buffer that the system is asked for. An ordinary user gets less.
  int receiveBuffer = 256 << 20;
  /// UDP port of the targets of SendTrap.
  std::uint16_t sendPort = kTrapPort;
};

/// Receives notifications of versions 1, 2c and 3 over IPv4 and IPv6, on a thread of its own, and
/// sends traps, also while it does not listen.
/// Every member is for the event loop's thread. One listener at a time in a process.
class NetSnmpListener final : public SNMP, public ReceptionMonitor {
 public:
  /// `wake` is called on the receiver thread when traps have begun to wait; the event loop then
  /// calls Deliver until nothing is left. It must not throw. The observer must outlive this.
  NetSnmpListener(ListenerOptions options, TrapObserver& observer, std::function<void()> wake);
  ~NetSnmpListener() override;

  std::int16_t StartListening() override;
  ListenFailure WhyNotListening() const override { return failure_; }
  void StopListening() override;
  void CloseListener() override;

  std::string ResolveHost(const std::string& hostName) override {
    return sender_.ResolveHost(hostName);
  }
  std::int16_t SendTrap(const std::string& target, const std::string& community,
                        const std::vector<std::string>& OIDs,
                        const std::vector<std::string>& Values,
                        const std::vector<std::int16_t>& DataTypes) override {
    return sender_.SendTrap(target, community, OIDs, Values, DataTypes);
  }
  std::string StatusText() const override { return sender_.StatusText(); }
  std::string LocalText1() const override;
  std::string LocalText2() const override;

  /// Hands waiting traps to the observer, one at a time, until none is left or the time is used
  /// up. Returns whether more are waiting: the caller then lets the event loop take a turn and
  /// calls again.
  bool Deliver(std::chrono::milliseconds budget);

  /// Traps that have been received and not yet been handed to the observer.
  std::size_t Waiting() const { return taken_.Size() - next_ + queue_.Size(); }

  /// Whether traps that arrive now are received.
  bool IsListening() const { return receiver_ != nullptr; }
  /// The port that is bound, 0 while not listening.
  std::uint16_t Port() const;

  ListeningFacts Listening() const override;
  /// Since this object was made.
  ListenerCounters Counters() const override { return counters_.Read(); }
  std::optional<LastDatagram> LastOf(Outcome outcome) const override {
    return record_.LastOf(outcome);
  }
  std::vector<SeenDatagram> Refused() const override { return record_.Refused(); }
  void SetWatching(bool watching) override { record_.SetWatching(watching); }
  std::vector<SeenDatagram> TakeWatched() override { return record_.TakeWatched(); }
  std::uint64_t MissedByWatch() const override { return record_.MissedByWatch(); }
  /// Also while it does not listen.
  Version3UserStore& Version3UsersKept() { return users_; }

 private:
  int OpenSocket() const;
  SnmpLibrary& SetUpLibrary();
  /// Null where none waits.
  const ArrivedTrap* TakeNext();

  const ListenerOptions options_;
  TrapObserver& observer_;
  const std::function<void()> wake_;
  Sender sender_;
  Version3UserKeeper users_;
  ListenFailure failure_;
  SharedCounters counters_;
  ReceptionRecord record_;
  TrapQueue queue_;
  /// Taken off the queue, from next_ on not yet delivered.
  TrapBatch taken_;
  std::size_t next_ = 0;
  /// The receiver thread's while there is a receiver.
  std::unique_ptr<SnmpLibrary> library_;
  std::unique_ptr<Receiver> receiver_;
};

}  // namespace sentrel
