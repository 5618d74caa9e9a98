#pragma once

#include <cstdint>
#include <string>

namespace sentrel {

/// The options of the run. Used on the event loop only; made before the main window and kept until
/// the process ends.
class Settings {
 public:
  /// Show traps as they came, without decoding OIDs.
  bool Raw() const { return raw_; }
  void SetRaw(bool setting) { raw_ = setting; }
  /// Accept traps only from sources in the device filter list.
  bool DeviceFilterActive() const { return deviceFilterActive_; }
  void SetDeviceFilterActive(bool setting) { deviceFilterActive_ = setting; }
  /// Drop arriving traps. False at every start.
  bool Paused() const { return paused_; }
  void SetPaused(bool setting) { paused_ = setting; }
  /// Write accepted traps to the log file.
  bool LoggingEnabled() const { return loggingEnabled_; }
  void SetLoggingEnabled(bool setting) { loggingEnabled_ = setting; }

  const std::string& LogFilename() const { return logFilename_; }
  void SetLogFilename(const std::string& filename) { logFilename_ = filename; }
  /// Limit of the OID cache, in entries.
  std::int32_t OIDCacheSize() const { return oidCacheSize_; }
  void SetOIDCacheSize(std::int32_t entries) { oidCacheSize_ = entries; }

 private:
  bool raw_ = false;
  bool deviceFilterActive_ = false;
  bool paused_ = false;
  bool loggingEnabled_ = false;
  std::string logFilename_;
  std::int32_t oidCacheSize_ = 1000;
};

}  // namespace sentrel
