#include "console/trap_log.h"

#include <fmt/format.h>

#include "common/failure.h"
#include "common/text.h"

namespace sentrel {

TrapLog::TrapLog(const Settings& settings, const Clock& clock, const Locale& locale, LogFile& file)
    : settings_(settings), clock_(clock), locale_(locale), file_(file) {}

void TrapLog::WriteToLog(const std::string& Text) {
  Attempt([&] {
    const std::string stamp = FormatLogStamp(clock_.Now(), locale_.Texts());
    file_.Append(settings_.LogFilename(), fmt::format("{}   {}{}", stamp, Text, kCrLf));
  });
}

}  // namespace sentrel
