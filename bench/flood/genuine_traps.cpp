#include "genuine_traps.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace sentrel::bench {
namespace {

const std::string kAuthPhrase = "auth-pass-phrase";
const std::string kPrivPhrase = "priv-pass-phrase";

std::string EngineOf(std::uint32_t number) {
  char hex[32];
  std::snprintf(hex, sizeof hex, "0x8000000001%08x", number);
  return hex;
}

/// A socket that nothing answers on, and its port.
int Catcher(std::uint16_t& port) {
  const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
  sockaddr_in own{};
  own.sin_family = AF_INET;
  own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof own;
  auto* const address = reinterpret_cast<sockaddr*>(&own);
  if (bind(socket, address, length) != 0 || getsockname(socket, address, &length) != 0) {
    std::abort();
  }
  port = ntohs(own.sin_port);
  return socket;
}

}  // namespace

Version3UserEntry GenuineUser() {
  Version3UserEntry entry;
  entry.user.name = "ann";
  entry.user.authentication = Authentication::kSha256;
  entry.user.privacy = Privacy::kAes128;
  entry.authPassphrase = kAuthPhrase;
  entry.privPassphrase = kPrivPhrase;
  return entry;
}

Datagrams GenuineVersion3(std::uint32_t count, Engines engines) {
  std::uint16_t port = 0;
  const int catcher = Catcher(port);
  Datagrams traps;
  for (std::uint32_t i = 1; i <= count; ++i) {
    const std::string command =
        "MIBS= snmptrap -v3 -e " + EngineOf(engines == Engines::One ? 0 : i) + " -Z 1," +
        std::to_string(i) + " -u ann -l authPriv -a SHA-256 -A " + kAuthPhrase + " -x AES -X " +
        kPrivPhrase + " localhost:" + std::to_string(port) +
        " 1 1.3.6.1.6.3.1.1.5.3 1.3.6.1.2.1.2.2.1.1.7 i 7";
    if (std::system(command.c_str()) != 0) {
      std::fprintf(stderr, "snmptrap is missing or fails\n");
      std::exit(1);
    }
    std::array<char, 2048> bytes;
    traps.emplace_back(bytes.data(), recv(catcher, bytes.data(), bytes.size(), 0));
  }
  close(catcher);
  return traps;
}

}  // namespace sentrel::bench
