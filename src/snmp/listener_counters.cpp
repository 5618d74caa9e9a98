#include "snmp/listener_counters.h"

namespace sentrel {

std::string_view OutcomeText(Outcome outcome) {
  static constexpr std::array<std::string_view, kOutcomes> kTexts = {"accepted",
                                                                     "queue full",
                                                                     "repeated",
                                                                     "not SNMP",
                                                                     "truncated",
                                                                     "malformed",
                                                                     "unsupported version",
                                                                     "no notification",
                                                                     "unknown engine",
                                                                     "unknown user",
                                                                     "unsupported security level",
                                                                     "security level too low",
                                                                     "wrong digest",
                                                                     "not decrypted",
                                                                     "not in time window"};
  return kTexts[static_cast<std::size_t>(outcome)];
}

ListenerCounters SharedCounters::Read() const {
  ListenerCounters copy;
  for (std::size_t i = 0; i < kOutcomes; ++i) copy.outcomes[i] = outcomes_[i].load(kOrder);
  copy.answeredInforms = answeredInforms_.load(kOrder);
  copy.systemDrops = systemDrops_.load(kOrder);
  return copy;
}

}  // namespace sentrel
