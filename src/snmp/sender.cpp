#include "snmp/sender.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <exception>
#include <utility>

#include "common/failure.h"
#include "snmp/host_lookup.h"
#include "snmp/trap_message.h"

namespace sentrel {
namespace {

/// The window waits for this long at most, and a little more.
constexpr std::chrono::milliseconds kLookupLimit{4'500};

class Socket {
 public:
  explicit Socket(int family) : descriptor_(socket(family, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {}
  ~Socket() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  bool Send(const std::vector<std::uint8_t>& message, const HostAddress& to) const {
    return descriptor_ >= 0 &&
           sendto(descriptor_, message.data(), message.size(), 0, &to.address.any, to.length) >= 0;
  }

 private:
  const int descriptor_;
};

std::string Reason(int error, const std::string& target) {
  switch (error) {
    case ENETUNREACH:
    case EADDRNOTAVAIL:
    case EAFNOSUPPORT:
      return fmt::format("Network unreachable: this machine has no way to {}.", target);
    case EHOSTUNREACH:
    case EHOSTDOWN:
      return fmt::format("Host unreachable: {} does not answer on its network.", target);
    case EACCES:
    case EPERM:
      return fmt::format("Permission denied: this machine may not send to {}.", target);
    default:
      return fmt::format("The trap cannot be sent to {}: {}.", target, std::strerror(error));
  }
}

}  // namespace

template <typename Step>
bool Sender::Succeeds(Step&& step) {
  statusText_ = "OK";
  try {
    std::forward<Step>(step)();
    return true;
  } catch (const std::exception& error) {
    statusText_ = error.what();
    return false;
  }
}

std::string Sender::ResolveHost(const std::string& hostName) {
  std::string text;
  Succeeds([&] {
    Peer peer{};
    peer.remote = LookUpHost(hostName, HostFamily::kIPv4, kLookupLimit).address;
    AddressText(peer, text);
  });
  return text;
}

std::int16_t Sender::SendTrap(const std::string& target, const std::string& community,
                              const std::vector<std::string>& OIDs,
                              const std::vector<std::string>& Values,
                              const std::vector<std::int16_t>& DataTypes) {
  const bool sent = Succeeds([&] {
    const auto message = TrapMessage(community, OIDs, Values, DataTypes);
    HostAddress to = LookUpHost(target, HostFamily::kAny, kLookupLimit);
    // The port is at the same place in both forms.
    to.address.v4.sin_port = htons(port_);
    const Socket socket(to.address.any.sa_family);
    if (!socket.Send(message, to)) throw Failure(Reason(errno, target));
  });
  return sent ? 0 : 1;
}

}  // namespace sentrel
