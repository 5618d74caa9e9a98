#pragma once

#include <string>

namespace sentrel {

/// The agreement between the listener and sentrel-port, the small program that alone may have the
/// right to open port 162. The helper finds a Unix socket at this descriptor, sends one byte over
/// it, which is a PortHelperResult, and with kPortHandedOver the bound socket (SCM_RIGHTS); then it
/// ends with the result as its exit code. It never waits: what the channel does not take at once is
/// not sent.
inline constexpr int kPortHelperChannel = 3;

enum PortHelperResult : char {
  kPortHandedOver = 0,
  /// Started by hand: nothing is sent.
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
