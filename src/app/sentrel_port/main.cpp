// sentrel-port: binds UDP port 162 and hands the socket to the program that started it. It takes
// no arguments and reads no environment, because it is the one program that is given the right to
// open the port (cap_net_bind_service). Whatever its starter arranges, it waits for nothing while
// it has the port.

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "snmp/port_helper.h"
#include "snmp/trap_socket.h"

namespace sentrel {
namespace {

bool IsUnixSocket(int descriptor) {
  int domain = 0;
  socklen_t length = sizeof domain;
  return getsockopt(descriptor, SOL_SOCKET, SO_DOMAIN, &domain, &length) == 0 && domain == AF_UNIX;
}

PortHelperResult ResultOf(int socket) {
  if (socket == -EACCES) return kPortNotPermitted;
  if (socket == -EADDRINUSE) return kPortInUse;
  return socket < 0 ? kPortNotBound : kPortHandedOver;
}

/// Does not wait for a channel that is full, which would keep the port from everyone.
bool Send(PortHelperResult result, int socket) {
  char byte = result;
  iovec data{&byte, 1};
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
  msghdr message{};
  message.msg_iov = &data;
  message.msg_iovlen = 1;
  if (socket >= 0) {
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    cmsghdr* header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(header), &socket, sizeof socket);
  }
  return sendmsg(kPortHelperChannel, &message, MSG_NOSIGNAL | MSG_DONTWAIT) == 1;
}

PortHelperResult Run(int argumentCount) {
  if (argumentCount != 1 || !IsUnixSocket(kPortHelperChannel)) return kPortHelperMisused;
  const int socket = BindTrapSocket(kTrapPort);
  const PortHelperResult result = ResultOf(socket);
  const bool sent = Send(result, socket);
  // Before the end, which closes what the starter has left open: a file that is slow to close would
  // keep the port.
  if (socket >= 0) close(socket);
  return sent || socket < 0 ? result : kPortNotBound;
}

}  // namespace
}  // namespace sentrel

int main(int argumentCount, char**) {
  return sentrel::Run(argumentCount);
}
