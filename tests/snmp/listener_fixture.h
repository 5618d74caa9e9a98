#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <semaphore>
#include <string>
#include <thread>
#include <vector>

#include "common/atomic_file.h"
#include "fakes/shell.h"
#include "snmp/net_snmp_listener.h"
#include "udp_socket.h"

namespace sentrel::test {

/// The environment for a program of the SNMP library that keeps its files in this folder.
QProcessEnvironment EnvironmentIn(const std::filesystem::path& folder);

/// A listener on a port of the system's choice, with folders of its own and an event loop that
/// turns only while a test waits.
class ListenerTest : public testing::Test, public TrapObserver {
 protected:
  /// Starts a listener, with these lines in sentrel.conf.
  void Start(const std::string& configuration = "", QueueLimits limits = {});
  void Stop();
  NetSnmpListener& Listener() { return *listener_; }
  std::uint64_t Count(Outcome outcome) const { return listener_->Counters().Of(outcome); }

  /// Runs the event loop until the condition holds; false when it does not within 20 seconds.
  bool WaitUntil(const std::function<bool()>& condition);
  /// The same with the event loop blocked.
  static bool WaitBlockedUntil(const std::function<bool()>& condition);
  bool WaitForTraps(std::size_t count) {
    return WaitUntil([&] { return traps_.size() >= count; });
  }

  /// Does a step, after which one more datagram has this outcome.
  void ExpectOutcome(Outcome outcome, const std::function<void()>& step);
  void ExpectOutcome(const std::string& datagram, Outcome outcome) {
    ExpectOutcome(outcome, [&] { UdpSocket(Listener().Port()).Send(datagram); });
  }

  /// Runs a sender with arguments of which "HOST" is the listener's address. Returns its exit code.
  int Send(const char* tool, const std::vector<std::string>& arguments,
           const std::string& host = "127.0.0.1") {
    return SendTo(listener_->Port(), tool, arguments, host);
  }

  /// The datagram of a sender that is started with these arguments; it goes nowhere else.
  std::string Caught(const char* tool, const std::vector<std::string>& arguments);

  void OnTrap(const ArrivedTrap& trap) override {
    trap.Read(traps_.emplace_back());
    last_ = trap;
  }

  const QTemporaryDir temporary_;
  const std::filesystem::path folder_ = temporary_.path().toStdString();
  std::vector<Trap> traps_;
  /// The last of them as it came.
  ArrivedTrap last_;
  /// Called on the receiver thread when traps have begun to wait. To be set before Start.
  std::function<void()> onWake_ = [] {};

 private:
  int SendTo(std::uint16_t port, const char* tool, const std::vector<std::string>& arguments,
             const std::string& host);

  std::counting_semaphore<> wakes_{0};
  std::unique_ptr<NetSnmpListener> listener_;
};

}  // namespace sentrel::test
