#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "snmp/replay_check.h"

namespace sentrel {

/// The security parameters of a version 3 message (RFC 3414, section 2.4).
struct UsmParameters {
  /// msgAuthoritativeEngineID and msgUserName, any bytes, at most 32 each.
  std::string engine;
  std::string user;
  EngineMoment moment;
  /// msgAuthenticationParameters.
  std::vector<std::uint8_t> digest;
  /// msgPrivacyParameters.
  std::vector<std::uint8_t> salt;
  /// Bytes from msgSecurityParameters up to the digest.
  std::size_t digestOffset;
  /// Bytes from msgSecurityParameters up to msgData.
  std::size_t length;
};

/// `bytes` begin with msgSecurityParameters and may go on behind them. Nothing where they are not
/// encoded as they must be.
std::optional<UsmParameters> ReadUsmParameters(std::span<const std::uint8_t> bytes);

}  // namespace sentrel
