#pragma once

#include "platform/clock.h"
#include "platform/snmp.h"
#include "sending/send_form.h"

namespace sentrel {

/// The command that sends a test trap. The references must outlive it.
class TestTrap {
 public:
  TestTrap(SNMP& snmp, const Clock& clock, const Locale& locale, SendForm& form)
      : snmp_(snmp), clock_(clock), locale_(locale), form_(form) {}

  /// Builds the trap, which tells the present time, and lets the user send it. Returns when the
  /// dialog has closed.
  void SendTestTrap();

 private:
  SNMP& snmp_;
  const Clock& clock_;
  const Locale& locale_;
  SendForm& form_;
};

}  // namespace sentrel
