#pragma once

namespace sentrel {

/// How a version 3 message is protected (RFC 3411, section 3.4.3). Other messages count as not
/// protected.
enum class SecurityLevel { kNoAuthNoPriv = 1, kAuthNoPriv = 2, kAuthPriv = 3 };

}  // namespace sentrel
