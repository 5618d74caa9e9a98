#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "snmp/trap_message.h"

namespace sentrel {

/// The bytes of a version 2c notification (RFC 3416) with these OCTET STRINGs behind the two
/// bindings that every one begins with.
inline std::string NotificationBytes(const std::string& community,
                                     const std::vector<std::string>& oids,
                                     const std::vector<std::string>& texts) {
  std::vector<std::string> all = {"1.3.6.1.2.1.1.3.0", "1.3.6.1.6.3.1.1.4.1.0"};
  std::vector<std::string> values = {"1", "1.3.6.1.6.3.1.1.5.3"};
  std::vector<std::int16_t> types = {67, 6};
  all.insert(all.end(), oids.begin(), oids.end());
  values.insert(values.end(), texts.begin(), texts.end());
  types.resize(all.size(), 4);
  const auto message = TrapMessage(community, all, values, types);
  return {message.begin(), message.end()};
}

/// The same notification as an inform. No community may hold the tag of a trap.
inline std::string AsInform(std::string notification, const std::string& community) {
  const auto pdu = notification.find(community) + community.size();
  notification[pdu] = '\xA6';
  return notification;
}

}  // namespace sentrel
