#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "udp_socket.h"

namespace sentrel {

/// Datagrams of every kind, good and bad, sent to a port of this machine. What is sent follows from
/// the seed alone.
class Storm {
 public:
  /// The samples are sent as they are, whole, cut or changed at random.
  Storm(std::uint16_t port, std::uint32_t seed, std::vector<std::string> samples);

  /// Sends a few datagrams, as far as no more than the socket's buffer holds are on their way.
  void Blow(std::uint64_t received);
  /// A trap with one binding of this OID and text.
  void SendMarker(const std::string& oid, const std::string& text);

  std::uint64_t Sent() const { return sent_; }
  /// Well-formed informs, and the answers to them so far.
  std::uint64_t Informs() const { return informs_; }
  std::uint64_t Answers();

 private:
  std::uint32_t Below(std::uint32_t bound) { return random_() % bound; }
  const std::string& AnyOf(const std::vector<std::string>& texts) {
    return texts[Below(static_cast<std::uint32_t>(texts.size()))];
  }
  std::string Notification(bool inform);
  void Send(const test::UdpSocket& sender, const std::string& datagram);

  std::mt19937 random_;
  const std::vector<std::string> samples_;
  /// Nothing comes back on the one but answers to well-formed informs.
  test::UdpSocket informSender_;
  test::UdpSocket sender_;
  std::uint64_t sent_ = 0;
  std::uint64_t informs_ = 0;
  std::uint64_t answers_ = 0;
};

}  // namespace sentrel
