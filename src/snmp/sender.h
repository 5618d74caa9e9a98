#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "snmp/trap_socket.h"

namespace sentrel {

/// Finds hosts and sends traps to them, over IPv4 and IPv6. Belongs to one thread, beside which the
/// receiver may run. SNMP tells what the operations promise.
class Sender {
 public:
  explicit Sender(std::uint16_t port = kTrapPort) : port_(port) {}

  std::string ResolveHost(const std::string& hostName);
  std::int16_t SendTrap(const std::string& target, const std::string& community,
                        const std::vector<std::string>& OIDs,
                        const std::vector<std::string>& Values,
                        const std::vector<std::int16_t>& DataTypes);
  const std::string& StatusText() const { return statusText_; }

 private:
  template <typename Step>
  bool Succeeds(Step&& step);

  const std::uint16_t port_;
  std::string statusText_ = "OK";
};

}  // namespace sentrel
