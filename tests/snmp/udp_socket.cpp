#include "udp_socket.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>

namespace sentrel::test {
namespace {

sockaddr_in Loopback(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

}  // namespace

UdpSocket::UdpSocket(std::uint16_t to)
    : socket_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)), answers_(to == 0), to_(Loopback(to)) {
  const sockaddr_in own = Loopback(0);
  if (bind(socket_, reinterpret_cast<const sockaddr*>(&own), sizeof own) != 0) {
    throw std::runtime_error("cannot bind a UDP socket");
  }
}

UdpSocket::~UdpSocket() {
  close(socket_);
}

std::uint16_t UdpSocket::Port() const {
  sockaddr_in own{};
  socklen_t length = sizeof own;
  getsockname(socket_, reinterpret_cast<sockaddr*>(&own), &length);
  return ntohs(own.sin_port);
}

void UdpSocket::Send(const std::string& bytes) const {
  const auto* const to = reinterpret_cast<const sockaddr*>(&to_);
  while (sendto(socket_, bytes.data(), bytes.size(), 0, to, sizeof to_) < 0) {
    if (errno != ENOBUFS && errno != EAGAIN) throw std::runtime_error("cannot send");
  }
}

std::string UdpSocket::Take() {
  std::array<char, 65'536> bytes;
  sockaddr_in from{};
  socklen_t size = sizeof from;
  const ssize_t length = recvfrom(socket_, bytes.data(), bytes.size(), MSG_DONTWAIT,
                                  reinterpret_cast<sockaddr*>(&from), &size);
  if (length > 0 && answers_) to_ = from;
  return {bytes.data(), length < 0 ? 0 : static_cast<std::size_t>(length)};
}

std::string UdpSocket::Await() {
  pollfd waiting{.fd = socket_, .events = POLLIN, .revents = 0};
  constexpr int kMilliseconds = 10'000;
  poll(&waiting, 1, kMilliseconds);
  return Take();
}

std::size_t UdpSocket::TakeAll() {
  std::size_t count = 0;
  while (!Take().empty()) ++count;
  return count;
}

std::string Mutated(std::string datagram, std::size_t mostChanges, std::mt19937& random) {
  for (std::size_t change = random() % mostChanges + 1; change > 0; --change) {
    const std::size_t at = random() % (datagram.size() + 1);
    switch (random() % 4) {
      case 0:
        datagram.resize(at);
        break;
      case 1:
        datagram.insert(at, 1 + random() % 16, static_cast<char>(random()));
        break;
      default:
        if (at < datagram.size()) datagram[at] = static_cast<char>(random());
    }
  }
  return datagram;
}

}  // namespace sentrel::test
