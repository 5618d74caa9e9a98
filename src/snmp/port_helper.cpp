#include "snmp/port_helper.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

namespace sentrel {
namespace {

constexpr timeval kPatience{5, 0};

/// Starts the helper with the channel as its only argument. Returns 0 or an errno.
int Spawn(const std::string& helper, int channel, pid_t& process) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, channel, kPortHelperChannel);
  std::string name = helper;
  const std::array<char*, 2> arguments = {name.data(), nullptr};
  const std::array<char*, 1> environment = {nullptr};
  const int error = posix_spawn(&process, helper.c_str(), &actions, nullptr, arguments.data(),
                                environment.data());
  posix_spawn_file_actions_destroy(&actions);
  return error;
}

int ErrorOf(char result) {
  switch (result) {
    case kPortNotPermitted:
      return EACCES;
    case kPortInUse:
      return EADDRINUSE;
    default:
      return EIO;
  }
}

/// The descriptor that comes with a message, or -1.
int DescriptorIn(const msghdr& message) {
  const cmsghdr* header = CMSG_FIRSTHDR(&message);
  if (header == nullptr || header->cmsg_level != SOL_SOCKET || header->cmsg_type != SCM_RIGHTS ||
      header->cmsg_len != CMSG_LEN(sizeof(int))) {
    return -1;
  }
  int descriptor = -1;
  std::memcpy(&descriptor, CMSG_DATA(header), sizeof descriptor);
  return descriptor;
}

/// What the helper says: the socket or a negative errno. Its exit code says the same, but is not to
/// be had where this program was started with SIGCHLD ignored.
int TakeSocket(int channel) {
  setsockopt(channel, SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
  char result = 0;
  iovec data{&result, 1};
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
  msghdr message{};
  message.msg_iov = &data;
  message.msg_iovlen = 1;
  message.msg_control = control.data();
  message.msg_controllen = control.size();
  ssize_t received = 0;
  do {
    received = recvmsg(channel, &message, MSG_CMSG_CLOEXEC);
  } while (received < 0 && errno == EINTR);
  const int socket = received == 1 ? DescriptorIn(message) : -1;
  return socket >= 0 ? socket : -ErrorOf(result);
}

}  // namespace

int SocketFromPortHelper(const std::string& helper) {
  std::array<int, 2> pair{};
  if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, pair.data()) != 0) return -errno;
  // dup2 onto itself would leave the descriptor closed on exec.
  const int theirs = fcntl(pair[1], F_DUPFD_CLOEXEC, kPortHelperChannel + 1);
  close(pair[1]);
  pid_t process = 0;
  const int error = theirs < 0 ? errno : Spawn(helper, theirs, process);
  if (theirs >= 0) close(theirs);
  if (error != 0) {
    close(pair[0]);
    return -error;
  }
  const int socket = TakeSocket(pair[0]);
  close(pair[0]);
  if (socket < 0) kill(process, SIGKILL);
  while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
  }
  return socket;
}

}  // namespace sentrel
