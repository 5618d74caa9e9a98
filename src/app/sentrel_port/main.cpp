// sentrel-port: binds UDP port 162 and hands the socket to the program that started it. It takes
// no arguments and reads no environment, because it is the one program that is given the right to
// open the port (cap_net_bind_service).

#include <sys/socket.h>

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

bool HandOver(int socket, int channel) {
  char byte = 0;
  iovec data{&byte, 1};
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
  msghdr message{};
  message.msg_iov = &data;
  message.msg_iovlen = 1;
  message.msg_control = control.data();
  message.msg_controllen = control.size();
  cmsghdr* header = CMSG_FIRSTHDR(&message);
  header->cmsg_level = SOL_SOCKET;
  header->cmsg_type = SCM_RIGHTS;
  header->cmsg_len = CMSG_LEN(sizeof(int));
  std::memcpy(CMSG_DATA(header), &socket, sizeof socket);
  return sendmsg(channel, &message, MSG_NOSIGNAL) == 1;
}

PortHelperExit Run(int argumentCount) {
  if (argumentCount != 1 || !IsUnixSocket(kPortHelperChannel)) return kPortHelperMisused;
  const int socket = BindTrapSocket(kTrapPort);
  if (socket == -EACCES) return kPortNotPermitted;
  if (socket == -EADDRINUSE) return kPortInUse;
  if (socket < 0) return kPortNotBound;
  return HandOver(socket, kPortHelperChannel) ? kPortHandedOver : kPortNotBound;
}

}  // namespace
}  // namespace sentrel

int main(int argumentCount, char**) {
  return sentrel::Run(argumentCount);
}
