#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "trap/arrived_trap.h"

namespace sentrel {

/// Told of every notification that arrives.
class TrapObserver {
 public:
  virtual ~TrapObserver() = default;
  /// Called on the event loop, one trap at a time, from StartListening to StopListening.
  /// Must not throw.
  virtual void OnTrap(const ArrivedTrap& trap) = 0;
};

/// Why reception could not be enabled, for people. Lines are separated by CR LF.
struct ListenFailure {
  /// What prevents it: "UDP port 162 is in use by snmptrapd (process 812)."
  std::string reason;
  /// What to do about it on this system, with the exact command where there is one.
  std::string remedy;
};

/// What is still to be handed on when reception ends is lost after this time.
inline constexpr std::chrono::seconds kMostForLastTraps{2};

/// Receives and sends traps. All calls come from the event loop.
class SNMP {
 public:
  virtual ~SNMP() = default;
  /// Enables trap reception. Greater than 0 means that it could not be enabled; WhyNotListening()
  /// then tells why. Never throws.
  virtual std::int16_t StartListening() = 0;
  /// The reason of the last StartListening that failed.
  virtual ListenFailure WhyNotListening() const = 0;
  /// Ends reception: hands on the traps that have arrived until now, for which it takes no longer
  /// than kMostForLastTraps, also while more arrive. No OnTrap comes after it. Throws Failure.
  virtual void StopListening() = 0;
  /// Releases what the listener holds. Called once, after StopListening. Throws Failure.
  virtual void CloseListener() = 0;

  /// The IPv4 address of a host, as a dotted quad, or a text that is none where the name has no
  /// such address. Takes no more than 5 seconds; traps that arrive meanwhile wait. Never throws.
  virtual std::string ResolveHost(const std::string& hostName) = 0;
  /// Sends one version 2c trap (RFC 3416, section 4.2.6) to UDP port 162 of the target, an address
  /// or a name: exactly these bindings, sysUpTime.0 and snmpTrapOID.0 not added. The lists are
  /// parallel; a type code is the tag byte, a value has the text that it has in a Trap. 0 means
  /// sent; else nothing was sent and StatusText() tells why. Never throws.
  virtual std::int16_t SendTrap(const std::string& target, const std::string& community,
                                const std::vector<std::string>& OIDs,
                                const std::vector<std::string>& Values,
                                const std::vector<std::int16_t>& DataTypes) = 0;
  /// Why the last ResolveHost or SendTrap failed, in a sentence for people; "OK" where it did not.
  virtual std::string StatusText() const = 0;
  /// Who this station is, for the files that it writes: its host name.
  virtual std::string LocalText1() const = 0;
  /// The same: its operating system.
  virtual std::string LocalText2() const = 0;
};

}  // namespace sentrel
