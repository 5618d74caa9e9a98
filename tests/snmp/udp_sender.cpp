#include "udp_sender.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>

#include "fakes/loopback.h"

namespace sentrel::test {
namespace {

std::string Next(int socket) {
  std::array<char, 65'536> bytes;
  const ssize_t length = recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
  return {bytes.data(), length < 0 ? 0 : static_cast<std::size_t>(length)};
}

}  // namespace

UdpSender::UdpSender(std::uint16_t port) : socket_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
  const sockaddr_in to = Loopback(port);
  if (connect(socket_, reinterpret_cast<const sockaddr*>(&to), sizeof to) != 0) {
    throw std::runtime_error("cannot connect a UDP socket");
  }
}

UdpSender::~UdpSender() {
  close(socket_);
}

void UdpSender::Send(const std::string& bytes) const {
  while (send(socket_, bytes.data(), bytes.size(), 0) < 0) {
    if (errno != ENOBUFS && errno != EAGAIN) throw std::runtime_error("cannot send");
  }
}

std::string UdpSender::Answer() const {
  pollfd waiting{.fd = socket_, .events = POLLIN, .revents = 0};
  constexpr int kMilliseconds = 10'000;
  poll(&waiting, 1, kMilliseconds);
  return Next(socket_);
}

std::size_t UdpSender::TakeAnswers() const {
  std::array<char, 2048> answer;
  std::size_t count = 0;
  while (recv(socket_, answer.data(), answer.size(), MSG_DONTWAIT) > 0) ++count;
  return count;
}

UdpCatcher::UdpCatcher() : socket_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in own = Loopback(0);
  socklen_t length = sizeof own;
  auto* const address = reinterpret_cast<sockaddr*>(&own);
  if (bind(socket_, address, length) != 0 || getsockname(socket_, address, &length) != 0) {
    throw std::runtime_error("cannot bind a UDP socket");
  }
  port_ = ntohs(own.sin_port);
}

UdpCatcher::~UdpCatcher() {
  close(socket_);
}

std::string UdpCatcher::Take() const {
  return Next(socket_);
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
