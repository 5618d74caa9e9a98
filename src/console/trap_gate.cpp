#include "console/trap_gate.h"

#include "common/failure.h"

namespace sentrel {

TrapGate::TrapGate(const Settings& settings, RowBuilder& rows, Timer& resetTimer)
    : settings_(settings), rows_(rows), resetTimer_(resetTimer) {}

void TrapGate::OnTrap(const Trap& trap) {
  if (!Accepts(trap)) return;
  Attempt([&] { rows_.AddTrap(trap); });
  resetTimer_.SetEnabled(false);
  resetTimer_.SetEnabled(true);
}

bool TrapGate::Accepts(const Trap&) const { return !settings_.Paused(); }

}  // namespace sentrel
