#include "snmp/listen_failure.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <system_error>

#include "snmp/port_holder.h"
#include "snmp/port_permission.h"

namespace sentrel {
namespace {

std::string OwnName() {
  std::ifstream file("/proc/self/comm");
  std::string name;
  std::getline(file, name);
  return name;
}

std::string HowToFree(const PortHolder& holder) {
  if (holder.name == OwnName()) {
    return "Another copy of this program already receives the traps: use it, or close it first.";
  }
  if (!holder.service.empty()) {
    return fmt::format("Stop that service with: sudo systemctl stop {}", holder.service);
  }
  if (holder.process == 1) {
    return "The system's service manager holds the port for a service: list them with: "
           "systemctl list-sockets";
  }
  const char* const privilege =
      access(fmt::format("/proc/{}/environ", holder.process).c_str(), R_OK) == 0 ? "" : "sudo ";
  return fmt::format("End that program, for example with: {}kill {}", privilege, holder.process);
}

ListenFailure InUse(std::uint16_t port) {
  if (const auto holder = FindPortHolder(port)) {
    return {fmt::format("UDP port {} is in use by {} (process {}).", port, holder->name,
                        holder->process),
            HowToFree(*holder)};
  }
  return {fmt::format("UDP port {} is in use by another program, which the system does not show "
                      "to this user.",
                      port),
          fmt::format("Find the program with: sudo ss -lunp 'sport = :{}' and end it.", port)};
}

}  // namespace

ListenFailure ExplainListenFailure(int error, std::uint16_t port, const std::string& helper) {
  switch (error) {
    case EADDRINUSE:
      return InUse(port);
    case EACCES:
    case EPERM:
      return {fmt::format("This user may not open UDP port {} (permission denied).", port),
              HowToBeLetIn(helper, ThisUser())};
    default:
      return {fmt::format("UDP port {} cannot be opened: {}.", port,
                          std::generic_category().message(error)),
              "Put that right and start the program again."};
  }
}

}  // namespace sentrel
