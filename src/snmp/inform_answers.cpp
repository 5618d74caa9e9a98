#include "snmp/inform_answers.h"

#include "common/coarse_clock.h"

namespace sentrel {

Outcome HandOn(const NotificationSink& sink, ArrivedTrap& trap) {
  return sink(trap) ? Outcome::kAccepted : Outcome::kQueueFull;
}

Outcome InformAnswers::HandOnOnce(const InformIdentity& inform, ArrivedTrap& trap) {
  const auto digest = taken_.DigestOf(inform);
  const auto now = CoarseClock::now();
  if (digest && taken_.Has(*digest, now)) return Outcome::kRepeated;
  const Outcome outcome = HandOn(sink_, trap);
  if (digest && outcome == Outcome::kAccepted) taken_.Add(*digest, now);
  return outcome;
}

}  // namespace sentrel
