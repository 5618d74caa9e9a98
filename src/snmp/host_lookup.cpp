#include "snmp/host_lookup.h"

#include <arpa/inet.h>
#include <fmt/format.h>
#include <netdb.h>

#include <cstring>
#include <optional>

#include "common/dotted_quad.h"
#include "common/failure.h"
#include "snmp/within_time.h"

namespace sentrel {
namespace {

struct Answer {
  /// As getaddrinfo tells it; 0 for success.
  int error = 0;
  HostAddress found{};
};

Answer AskSystem(const std::string& host, HostFamily family) {
  addrinfo wanted{};
  wanted.ai_family = static_cast<int>(family);
  wanted.ai_socktype = SOCK_DGRAM;
  addrinfo* list = nullptr;
  Answer answer{.error = getaddrinfo(host.c_str(), nullptr, &wanted, &list)};
  if (answer.error != 0) return answer;
  answer.found.length = list->ai_addrlen;
  std::memcpy(&answer.found.address, list->ai_addr, list->ai_addrlen);
  freeaddrinfo(list);
  return answer;
}

[[noreturn]] void Refuse(const std::string& host, int error) {
  switch (error) {
    case EAI_NONAME:
    case EAI_NODATA:
    case EAI_ADDRFAMILY:
      throw Failure(fmt::format("The host \"{}\" is not known.", host));
    case EAI_AGAIN:
      throw Failure(fmt::format("No name server answers the question for \"{}\".", host));
    default:
      throw Failure(
          fmt::format("The host \"{}\" cannot be looked up: {}.", host, gai_strerror(error)));
  }
}

/// What the system would take for an address all the same: "1.2.3" for 1.2.0.3, "0x7f.1" for
/// 127.0.0.1, "16909060" for 1.2.3.4.
bool IsShortAddress(const std::string& host) {
  in_addr ignored{};
  return inet_aton(host.c_str(), &ignored) != 0;
}

HostAddress FromQuad(const std::array<std::uint8_t, 4>& quad) {
  HostAddress host{.address = {}, .length = sizeof(sockaddr_in)};
  host.address.v4.sin_family = AF_INET;
  std::memcpy(&host.address.v4.sin_addr, quad.data(), quad.size());
  return host;
}

}  // namespace

HostAddress LookUpHost(const std::string& host, HostFamily family,
                       std::chrono::milliseconds limit) {
  // The system would read a part with a zero in front as octal.
  if (const auto quad = DottedQuad(host)) return FromQuad(*quad);
  if (IsShortAddress(host)) throw Failure(fmt::format("\"{}\" is not a whole address.", host));
  const auto answer = WithinTime<Answer>(limit, [host, family] { return AskSystem(host, family); });
  const int error = answer ? answer->error : EAI_AGAIN;
  if (error != 0) Refuse(host, error);
  return answer->found;
}

}  // namespace sentrel
