#pragma once

#include <string>

namespace sentrel {

/// The agreement between the listener and sentrel-port, the small program that alone may have the
/// right to open port 162. The helper finds a Unix socket at this descriptor, sends the bound
/// socket over it (SCM_RIGHTS) and ends.
inline constexpr int kPortHelperChannel = 3;

/// How the helper ends.
enum PortHelperExit : int {
  kPortHandedOver = 0,
  kPortHelperMisused = 1,
  kPortNotPermitted = 2,
  kPortInUse = 3,
  kPortNotBound = 4,
};

/// Runs the helper and takes the socket from it, within a few seconds. Returns the descriptor,
/// closed on exec and owned by the caller, or a negative errno: EACCES, EADDRINUSE, ENOENT where
/// there is no such program, or what else went wrong.
int SocketFromPortHelper(const std::string& helper);

}  // namespace sentrel
