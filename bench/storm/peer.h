#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

namespace sentrel::bench {

/// A running snmptrapd that writes every trap to a file and looks up no names.
class Peer {
 public:
  /// Returns when it listens on the port, or has failed to.
  explicit Peer(std::uint16_t port);
  ~Peer();
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  /// False where snmptrapd is not installed or does not start.
  bool Runs() const { return process_ > 0; }
  /// Seconds of processor time so far.
  double Seconds() const;
  /// Traps in its file so far.
  std::uint64_t Received() const;
  /// Waits until it has written all that it is going to.
  void Settle() const;

 private:
  std::string log_;
  pid_t process_;
};

/// A UDP port that nothing listens on at this moment.
std::uint16_t FreePort();

}  // namespace sentrel::bench
