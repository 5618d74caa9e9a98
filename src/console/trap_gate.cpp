#include "console/trap_gate.h"

#include "common/failure.h"

namespace sentrel {

TrapGate::TrapGate(const Settings& settings, TrapRows& rows, Decoder& decoder, Timer& resetTimer)
    : settings_(settings), rows_(rows), resetTimer_(resetTimer) {
  resetTimer_.Setup(std::chrono::seconds(30), [&decoder] { decoder.CheckCacheSize(); });
}

void TrapGate::OnTrap(const ArrivedTrap& trap) {
  if (!Accepts(trap)) return;
  Attempt([&] { rows_.AddTrap(trap); });
  resetTimer_.SetEnabled(false);
  resetTimer_.SetEnabled(true);
}

bool TrapGate::Accepts(const ArrivedTrap& trap) const {
  if (settings_.Paused()) return false;
  if (!settings_.AcceptsDevice(std::string(trap.SourceAddress()))) return false;
  const CommunityStrings& communities = *settings_.CommunityStrings();
  return communities.Count() == 0 || communities.Exists(std::string(trap.Community()));
}

}  // namespace sentrel
