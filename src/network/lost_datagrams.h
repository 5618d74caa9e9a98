#pragma once

#include <string_view>

#include "platform/network_facts.h"

namespace sentrel {

/// Reads what the system's files say: /proc/net/snmp and /proc/net/netstat, in which a line of
/// names comes before each line of numbers, and /proc/net/snmp6 with a name and a number on each
/// line. What is missing or no number is left out.
LostDatagrams ReadLostDatagrams(std::string_view snmp, std::string_view netstat,
                                std::string_view snmp6);

}  // namespace sentrel
