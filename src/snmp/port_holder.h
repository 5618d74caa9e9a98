#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace sentrel {

/// A process that has a UDP port open.
struct PortHolder {
  int process = 0;
  /// As the system names it: "snmptrapd".
  std::string name;
  /// The system service that it belongs to, "snmptrapd.service"; empty where it belongs to none.
  std::string service;
};

/// The process that holds the port, in host order, as far as the system shows it to this user. A
/// service manager that opened the port for another process is named only where it is alone.
std::optional<PortHolder> FindPortHolder(std::uint16_t port);

}  // namespace sentrel
