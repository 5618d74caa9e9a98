#pragma once

#include <netinet/in.h>

#include <cstdint>
#include <random>
#include <string>

namespace sentrel::test {

/// A UDP socket bound to a port of this machine.
class UdpSocket {
 public:
  /// Sends to this port; where it is 0, to where the last datagram came from.
  explicit UdpSocket(std::uint16_t to = 0);
  ~UdpSocket();
  UdpSocket(const UdpSocket&) = delete;
  UdpSocket& operator=(const UdpSocket&) = delete;

  std::uint16_t Port() const;
  /// Waits while the system has no room for the datagram.
  void Send(const std::string& bytes) const;
  /// The next datagram that has come; empty where none has.
  std::string Take();
  /// Waits for it; empty where none comes.
  std::string Await();
  /// Takes all that have come. Returns their number.
  std::size_t TakeAll();

 private:
  const int socket_;
  const bool answers_;
  sockaddr_in to_;
};

/// A UDP port that is free now, and that the system is not soon to give to anyone else.
inline std::uint16_t FreePort() {
  return UdpSocket().Port();
}

/// The datagram with one to `mostChanges` changes: cut short, bytes put in, bytes replaced.
std::string Mutated(std::string datagram, std::size_t mostChanges, std::mt19937& random);

}  // namespace sentrel::test
