#pragma once

#include <gtest/gtest.h>

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "snmp/net_snmp_listener.h"

namespace sentrel::test {

/// A folder that is gone after the test.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// A UDP socket connected to a port of this machine.
class UdpSender {
 public:
  explicit UdpSender(std::uint16_t port);
  ~UdpSender();
  UdpSender(const UdpSender&) = delete;
  UdpSender& operator=(const UdpSender&) = delete;
  /// Waits while the system has no room for the datagram.
  void Send(const std::string& bytes) const;

 private:
  int socket_;
};

std::string ReadFile(const std::filesystem::path& path);
void WriteFile(const std::filesystem::path& path, const std::string& content);

/// A listener on a port of the system's choice, with folders of its own and an event loop that
/// turns only while a test waits.
class ListenerTest : public testing::Test, public TrapObserver {
 protected:
  /// Starts a listener, with these lines in sentrel.conf.
  void Start(const std::string& configuration = "", QueueLimits limits = {});
  void Stop();
  NetSnmpListener& Listener() { return *listener_; }

  /// Runs the event loop until the condition holds; false when it does not within 20 seconds.
  bool WaitUntil(const std::function<bool()>& condition);
  /// The same with the event loop blocked.
  static bool WaitBlockedUntil(const std::function<bool()>& condition);
  bool WaitForTraps(std::size_t count) {
    return WaitUntil([&] { return traps_.size() >= count; });
  }

  /// Runs a sender with arguments of which "HOST" is the listener's address. Returns its exit code.
  int Send(const std::string& tool, std::vector<std::string> arguments,
           const std::string& host = "127.0.0.1");

  void OnTrap(const ArrivedTrap& trap) override { trap.Read(traps_.emplace_back()); }

  const TemporaryFolder folder_;
  std::vector<Trap> traps_;

 private:
  void Wake();

  std::mutex mutex_;
  std::condition_variable changed_;
  bool awake_ = false;
  std::unique_ptr<NetSnmpListener> listener_;
};

}  // namespace sentrel::test
