#pragma once

#include <functional>
#include <utility>

#include "platform/clock.h"
#include "platform/snmp.h"
#include "sending/trap_object.h"

namespace sentrel {

/// The command that sends a test trap. The references must outlive it.
class TestTrap {
 public:
  /// `sendTrap` shows the Send Trap dialog for a trap and returns when it has closed.
  TestTrap(SNMP& snmp, const Clock& clock, const Locale& locale,
           std::function<void(const TrapObject&)> sendTrap)
      : snmp_(snmp), clock_(clock), locale_(locale), sendTrap_(std::move(sendTrap)) {}

  /// Builds the trap, which tells the present time, and lets the user send it. Returns when the
  /// dialog has closed.
  void SendTestTrap();

 private:
  SNMP& snmp_;
  const Clock& clock_;
  const Locale& locale_;
  std::function<void(const TrapObject&)> sendTrap_;
};

}  // namespace sentrel
