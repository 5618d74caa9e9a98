#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>

#include "snmp/net_snmp_listener.h"

namespace sentrel::bench {

/// A listener on a free port whose traps go nowhere: recvmmsg, net-snmp, the queue, and a thread
/// that only takes the traps off it.
class BarePath {
 public:
  /// With these lines in sentrel.conf, and a socket buffer of this many bytes.
  explicit BarePath(const std::string& configuration = "",
                    int receiveBuffer = ListenerOptions().receiveBuffer);
  ~BarePath();
  BarePath(const BarePath&) = delete;
  BarePath& operator=(const BarePath&) = delete;

  std::uint16_t Port() const { return listener_.Port(); }
  Version3UserStore& Users() { return listener_.Version3UsersKept(); }
  std::uint64_t Accepted() const { return listener_.Counters().Of(Outcome::kAccepted); }
  /// Waits until nothing more arrives.
  void Settle() const;

 private:
  class Nowhere : public TrapObserver {
   public:
    void OnTrap(const ArrivedTrap&) override {}
  };
  void Wake();
  void Run();

  Nowhere observer_;
  std::filesystem::path state_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool awake_ = false;
  std::atomic<bool> done_ = false;
  NetSnmpListener listener_;
  std::thread thread_;
};

}  // namespace sentrel::bench
