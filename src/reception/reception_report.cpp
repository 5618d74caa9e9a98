#include "reception/reception_report.h"

#include <fmt/format.h>

#include "common/moment_text.h"
#include "common/visible_text.h"

namespace sentrel {
namespace {

std::string CountLines(const std::vector<Reason>& reasons) {
  std::string text = "Datagrams since the start\n";
  for (const Reason& reason : reasons) {
    if (reason.count == 0) continue;
    text += fmt::format("{:>12}  {}", reason.count, reason.text);
    if (reason.last) {
      text += fmt::format(", last {} from {}", TimeText(reason.last->arrival), reason.last->sender);
    }
    text += '\n';
  }
  return text;
}

std::string Line(const SeenDatagram& seen, const std::string& notification,
                 const std::string& verdict) {
  std::string text = fmt::format("{}  {}", TimeText(seen.arrival), seen.sender);
  const std::string community = seen.community.empty() ? "" : "(hidden)";
  for (const std::string& part : {VersionText(seen), community, notification, verdict}) {
    if (!part.empty()) text += ", " + part;
  }
  return VisibleText(text) + "\n";
}

}  // namespace

std::string VersionText(const SeenDatagram& seen) {
  if (!seen.version) return "";
  std::string text = seen.version == 2 ? "v2c" : fmt::format("v{}", *seen.version);
  if (!seen.level) return text;
  switch (*seen.level) {
    case SecurityLevel::kNoAuthNoPriv:
      return text + " noAuthNoPriv";
    case SecurityLevel::kAuthNoPriv:
      return text + " authNoPriv";
    case SecurityLevel::kAuthPriv:
      return text + " authPriv";
  }
  return text;
}

std::string RefusalText(const SeenDatagram& seen) {
  std::string text(ReasonText(seen.outcome));
  if (!seen.hint.empty()) text += ". " + seen.hint;
  return text;
}

std::string ReceptionReport(const std::vector<Reason>& reasons,
                            const std::vector<SeenDatagram>& refused,
                            const std::deque<WatchedDatagram>& watched,
                            const std::vector<CheckStep>& check) {
  std::string text = CountLines(reasons);
  if (!refused.empty()) text += "\nRefused, the newest first\n";
  for (const SeenDatagram& seen : refused) text += Line(seen, "", RefusalText(seen));
  if (!watched.empty()) text += "\nWatched, the oldest first\n";
  for (const WatchedDatagram& datagram : watched) {
    text += Line(datagram.seen, datagram.notification, datagram.verdict);
  }
  if (!check.empty()) text += "\nThe check\n";
  for (const CheckStep& step : check) {
    text += fmt::format("{}: {}. {}\n", step.name, VerdictText(step.verdict), step.finding);
  }
  return text;
}

}  // namespace sentrel
