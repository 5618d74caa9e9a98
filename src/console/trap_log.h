#pragma once

#include <string>

#include "platform/clock.h"
#include "platform/log_file.h"
#include "settings/settings.h"

namespace sentrel {

/// Appends accepted traps to the log file that the options name at the moment, made whole as
/// LogFile::WholePath does. Used on the event loop only: the window waits while an entry is
/// written.
class TrapLog {
 public:
  /// All of these must outlive the log.
  TrapLog(const Settings& settings, const Clock& clock, const Locale& locale, LogFile& file);

  /// One entry: the time, three blanks, the text (UTF-8, CR LF between lines) and a line end.
  /// Whether to log is the caller's decision. An entry that cannot be written is lost; never
  /// throws.
  void WriteToLog(const std::string& Text);

 private:
  const Settings& settings_;
  const Clock& clock_;
  const Locale& locale_;
  LogFile& file_;
};

}  // namespace sentrel
