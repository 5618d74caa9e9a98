#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "snmp/datagram.h"

namespace sentrel {

/// Reads datagrams in batches from a bound UDP socket, and sends single ones. Belongs to one
/// thread.
class DatagramSocket {
 public:
  /// Takes the descriptor over. The system is asked for a receive buffer of this many bytes;
  /// without privilege it gives no more than net.core.rmem_max.
  DatagramSocket(int descriptor, int bufferBytes);
  ~DatagramSocket();
  DatagramSocket(const DatagramSocket&) = delete;
  DatagramSocket& operator=(const DatagramSocket&) = delete;

  int Descriptor() const { return descriptor_; }
  /// The port that the socket is bound to, in host order.
  std::uint16_t Port() const;
  /// Whether it hears IPv6 too, and not IPv4 alone.
  bool HasIpv6() const;

  /// Datagrams of up to 500 bytes that the socket's buffer holds at least.
  std::size_t Room() const;

  static constexpr std::size_t kBatch = 64;
  /// The datagrams that wait, at most kBatch of them and perhaps none. Does not wait. What it
  /// returns is good until the next call.
  std::span<const Datagram> ReadBatch();

  /// From now on the system refuses what arrives; what it holds can still be read. To be undone by
  /// closing only.
  void Shut();

  /// Datagrams that the system dropped because this socket's buffer was full, as far as the
  /// datagrams read until now tell. Wraps at 2^32.
  std::uint32_t SystemDrops() const { return systemDrops_; }

  /// Sends to the peer from the address that the peer had used. Returns whether the system took it.
  bool Send(const Peer& peer, std::span<const std::uint8_t> bytes) const;

 private:
  struct Slots;
  void TakeControl(const msghdr& message, Datagram& datagram);

  const int descriptor_;
  std::unique_ptr<Slots> slots_;
  std::vector<Datagram> batch_;
  std::uint32_t systemDrops_ = 0;
};

}  // namespace sentrel
