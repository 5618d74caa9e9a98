#pragma once

#include <cstdint>
#include <string>

#include "platform/snmp.h"

namespace sentrel {

/// The words for a port that could not be opened. `error` is the errno; `helper` the path of
/// sentrel-port, empty where none was to be used.
ListenFailure ExplainListenFailure(int error, std::uint16_t port, const std::string& helper);

}  // namespace sentrel
