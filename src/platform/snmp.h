#pragma once

#include <cstdint>
#include <string>

#include "platform/trap.h"

namespace sentrel {

/// Told of every notification that arrives.
class TrapObserver {
 public:
  virtual ~TrapObserver() = default;
  /// Called on the event loop, one trap at a time, from StartListening to StopListening.
  /// Must not throw.
  virtual void OnTrap(const Trap& trap) = 0;
};

/// Why reception could not be enabled, in two sentences for people.
struct ListenFailure {
  /// What stands in the way: "UDP port 162 is in use by snmptrapd (process 812)."
  std::string reason;
  /// What to do about it on this system, with the exact command where there is one.
  std::string remedy;
};

/// The trap listener. All calls come from the event loop.
class SNMP {
 public:
  virtual ~SNMP() = default;
  /// Enables trap reception. Greater than 0 means that it could not be enabled; WhyNotListening()
  /// then tells why. Never throws.
  virtual std::int16_t StartListening() = 0;
  /// The reason of the last StartListening that failed.
  virtual ListenFailure WhyNotListening() const = 0;
  /// Ends reception: no OnTrap comes after it. Throws Failure.
  virtual void StopListening() = 0;
  /// Releases what the listener holds. Called once, after StopListening. Throws Failure.
  virtual void CloseListener() = 0;
};

}  // namespace sentrel
