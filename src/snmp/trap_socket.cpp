#include "snmp/trap_socket.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

namespace sentrel {
namespace {

int Bound(int socket, const sockaddr* address, socklen_t length) {
  if (bind(socket, address, length) == 0) return socket;
  const int error = errno;
  close(socket);
  return -error;
}

int BindV4(std::uint16_t port) {
  const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  if (socket < 0) return -errno;
  sockaddr_in any{};
  any.sin_family = AF_INET;
  any.sin_port = htons(port);
  return Bound(socket, reinterpret_cast<const sockaddr*>(&any), sizeof any);
}

int BindBoth(std::uint16_t port) {
  const int socket = ::socket(AF_INET6, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  if (socket < 0) return -errno;
  const int off = 0;
  if (setsockopt(socket, IPPROTO_IPV6, IPV6_V6ONLY, &off, sizeof off) != 0) {
    const int error = errno;
    close(socket);
    return -error;
  }
  sockaddr_in6 any{};
  any.sin6_family = AF_INET6;
  any.sin6_port = htons(port);
  return Bound(socket, reinterpret_cast<const sockaddr*>(&any), sizeof any);
}

}  // namespace

int BindTrapSocket(std::uint16_t port) {
  const int socket = BindBoth(port);
  const bool no_ipv6 = socket == -EAFNOSUPPORT || socket == -EADDRNOTAVAIL;
  return no_ipv6 ? BindV4(port) : socket;
}

}  // namespace sentrel
