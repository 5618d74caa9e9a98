#pragma once

// The library's headers in the order that they need.
#include <net-snmp/net-snmp-config.h>

#include <net-snmp/net-snmp-includes.h>
