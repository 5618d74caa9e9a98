#include "reception/reasons.h"

namespace sentrel {
namespace {

struct Words {
  std::string_view reason;
  std::string_view remedy;
};

constexpr std::array<Words, kOutcomes> kWords = {{
    {"Taken", ""},
    {"Queue full",
     "More traps came than could be shown in time. Pause the sender, or close a dialog that has "
     "been open for long."},
    {"Repeated, taken before",
     "An inform whose answer was lost on its way, or a recording that is played back. Nothing is "
     "missing."},
    {"Not SNMP", "Something else sends to port 162. Look at the sender."},
    {"Cut off", "A part of the message is missing. Look for a small MTU or a device with a fault."},
    {"Malformed", "The message breaks the rules of its encoding. Report it to the device's maker."},
    {"Unknown SNMP version", "Set the device to version 1, 2c or 3."},
    {"No trap or inform",
     "A request or an answer, not a notification. Something polls this machine, or a test tool "
     "sends the wrong kind of message."},
    {"Unknown engine",
     "No user is known for the engine of the sender. Add a version 3 user for this engine ID, or "
     "one for any engine."},
    {"Unknown user", "Add a version 3 user of this name; upper and lower case count."},
    {"Level not possible",
     "The message is signed or encrypted, and the user has no key for that. Give the user's "
     "passphrases."},
    {"Level too low",
     "The message is not signed, or not encrypted, although the user's keys allow it. Set the "
     "device to the user's level, or lower the user's least level here."},
    {"Wrong passphrase or algorithm",
     "Enter the authentication passphrase again, and compare the algorithm with the device's."},
    {"Cannot be decrypted",
     "Enter the privacy passphrase again, and compare the algorithm with the device's. AES-192 and "
     "AES-256 have two forms of the key."},
    {"Outside the time window",
     "The message is older than what the engine has told, or the device was reset or replaced: "
     "then forget its engine. Two devices must not have the same engine ID."},
}};

}  // namespace

std::string_view ReasonText(Outcome outcome) {
  return kWords[static_cast<std::size_t>(outcome)].reason;
}

std::string_view RemedyText(Outcome outcome) {
  return kWords[static_cast<std::size_t>(outcome)].remedy;
}

void Reasons::Sample(Clock::time_point now) {
  if (!moments_.empty() && now - moments_.back().at < std::chrono::milliseconds(400)) return;
  moments_.push_back({now, monitor_.Counters()});
  while (now - moments_.front().at > kRateWindow) moments_.pop_front();
}

std::vector<Reason> Reasons::List() const {
  const ListenerCounters counters = monitor_.Counters();
  std::vector<Reason> reasons;
  for (std::size_t i = 0; i < kOutcomes; ++i) {
    const auto outcome = static_cast<Outcome>(i);
    reasons.push_back({.text = std::string(ReasonText(outcome)),
                       .count = counters.Of(outcome),
                       .rate = Rate([=](const auto& c) { return c.Of(outcome); }),
                       .last = monitor_.LastOf(outcome),
                       .remedy = std::string(RemedyText(outcome))});
  }
  reasons.insert(reasons.begin() + 1,
                 {.text = "Informs answered",
                  .count = counters.answeredInforms,
                  .rate = Rate([](const auto& c) { return c.answeredInforms; }),
                  .last = {},
                  .remedy = ""});
  reasons.push_back({.text = "Dropped by the system",
                     .count = counters.systemDrops,
                     .rate = Rate([](const auto& c) { return c.systemDrops; }),
                     .last = {},
                     .remedy = "The buffer of the port was full. Let the system give more: "
                               "sysctl -w net.core.rmem_max=16777216, then restart Sentrel."});
  return reasons;
}

double Reasons::Rate(const std::function<std::uint64_t(const ListenerCounters&)>& count) const {
  if (moments_.size() < 2) return 0;
  const Moment& first = moments_.front();
  const Moment& last = moments_.back();
  const std::chrono::duration<double> time = last.at - first.at;
  return static_cast<double>(count(last.counters) - count(first.counters)) / time.count();
}

}  // namespace sentrel
