#include "console/trap_log.h"

#include <string_view>

#include "common/failure.h"
#include "common/text.h"

namespace sentrel {
namespace {

constexpr std::string_view kSeparator = "   ";

}  // namespace

TrapLog::TrapLog(const Settings& settings, const Clock& clock, const Locale& locale, LogFile& file)
    : settings_(settings), clock_(clock), locale_(locale), file_(file) {}

void TrapLog::WriteToLog(const std::string& Text) {
  Attempt([&] {
    std::string entry = FormatLogStamp(clock_.Now(), locale_.Texts());
    entry.reserve(entry.size() + kSeparator.size() + Text.size() + kCrLf.size());
    file_.Append(file_.WholePath(settings_.LogFilename()),
                 entry.append(kSeparator).append(Text).append(kCrLf));
  });
}

}  // namespace sentrel
