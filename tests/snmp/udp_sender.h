#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace sentrel::test {

/// A UDP socket connected to a port of this machine.
class UdpSender {
 public:
  explicit UdpSender(std::uint16_t port);
  ~UdpSender();
  UdpSender(const UdpSender&) = delete;
  UdpSender& operator=(const UdpSender&) = delete;

  /// Waits while the system has no room for the datagram.
  void Send(const std::string& bytes) const;
  /// Waits for the next answer; empty where none comes.
  std::string Answer() const;
  /// Takes the answers that have come since the last call. Returns their number.
  std::size_t TakeAnswers() const;

 private:
  int socket_;
};

/// A UDP socket bound to a port of this machine, which nothing answers on.
class UdpCatcher {
 public:
  UdpCatcher();
  ~UdpCatcher();
  UdpCatcher(const UdpCatcher&) = delete;
  UdpCatcher& operator=(const UdpCatcher&) = delete;

  std::uint16_t Port() const { return port_; }
  /// The next datagram that has come; empty where none has.
  std::string Take() const;

 private:
  int socket_;
  std::uint16_t port_;
};

/// The datagram with one to so many changes: cut short, bytes put in, bytes replaced.
std::string Mutated(std::string datagram, std::size_t mostChanges, std::mt19937& random);

}  // namespace sentrel::test
