#pragma once

#include "console/trap_rows.h"
#include "decoding/decoder.h"
#include "platform/snmp.h"
#include "platform/timer.h"
#include "settings/settings.h"

namespace sentrel {

/// Decides which traps become rows: none while receiving is paused, and only those that pass the
/// device filter and the community filter. A refused trap leaves no trace. Used on the event loop
/// only.
class TrapGate : public TrapObserver {
 public:
  /// The timer restarts with every accepted trap; 30 seconds without one, and every 30 seconds
  /// after that, the decoder's cache is checked. All of these must outlive the gate.
  TrapGate(const Settings& settings, TrapRows& rows, Decoder& decoder, Timer& resetTimer);

  /// A failure while the row is built is contained here: one bad trap never ends the program.
  void OnTrap(const ArrivedTrap& trap) override;

 private:
  bool Accepts(const ArrivedTrap& trap) const;

  const Settings& settings_;
  TrapRows& rows_;
  Timer& resetTimer_;
};

}  // namespace sentrel
