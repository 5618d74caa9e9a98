#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "settings/community_strings.h"
#include "settings/device_filters.h"
#include "settings/ipv6_device_filters.h"
#include "settings/registry_support.h"

namespace sentrel {

/// The options of the run, in memory from construction on; each but Paused is written to the store
/// the moment it changes. The store is read at construction only; where it cannot be read by then,
/// the defaults hold and changes count for this run only. Used on the event loop only; made
/// before the main window and kept until the process ends.
class Settings {
 public:
  /// Told of an option that has changed, by its name in the store and its new text.
  using ChangedHandler = std::function<void(const std::string& Name, const std::string& Value)>;

  /// Loads options and lists. The registry must outlive this object and the lists.
  explicit Settings(Registry& registry);

  /// Show traps as they came, without decoding OIDs.
  bool Raw() const { return raw_; }
  void SetRaw(bool Setting) { Change(raw_, Setting, "Raw"); }
  /// The one live list.
  const std::shared_ptr<sentrel::DeviceFilters>& DeviceFilters() const { return deviceFilters_; }
  /// The one live list.
  const std::shared_ptr<sentrel::Ipv6DeviceFilters>& Ipv6DeviceFilters() const {
    return ipv6DeviceFilters_;
  }
  /// Accept traps only from sources in DeviceFilters() or Ipv6DeviceFilters().
  bool DeviceFilterActive() const { return deviceFilterActive_; }
  void SetDeviceFilterActive(bool Setting) {
    Change(deviceFilterActive_, Setting, "Device Filter Active");
  }
  /// Whether device filtering, on or off, lets the source of a trap pass: a dotted quad is looked
  /// for in DeviceFilters(), any other address in Ipv6DeviceFilters().
  bool AcceptsDevice(const std::string& address) const;
  /// Drop arriving traps. False at every start, never stored.
  bool Paused() const { return paused_; }
  void SetPaused(bool Setting) { paused_ = Setting; }
  /// Write accepted traps to the log file.
  bool LoggingEnabled() const { return loggingEnabled_; }
  void SetLoggingEnabled(bool Setting) { Change(loggingEnabled_, Setting, "Logging Enabled"); }
  const std::string& LogFilename() const { return logFilename_; }
  /// Trims blanks from both ends of the caller's own text.
  void SetLogFilename(std::string& Filename);
  /// Limit of the OID cache, in entries.
  std::int32_t OIDCacheSize() const { return oidCacheSize_; }
  void SetOIDCacheSize(std::int32_t Entries) { Change(oidCacheSize_, Entries, "OID Cache Size"); }
  /// The one live list.
  const std::shared_ptr<sentrel::CommunityStrings>& CommunityStrings() const {
    return communityStrings_;
  }

  /// The stored text of an option, or the default as text.
  std::string RetrieveOption(const std::string& Name, const OptionText& Default) const;
  /// Stores an option and tells of the change, whether or not it reached the store.
  void SaveOption(const std::string& Name, const OptionText& Value);
  /// Loads everything but Paused from the store. A text that does not convert counts as absent.
  /// Tells of no change.
  void Refresh();

  /// Replaces the handler that is called from within SaveOption; an empty one is allowed.
  void SetChanged(ChangedHandler handler) { changed_ = std::move(handler); }

 private:
  template <typename Value>
  void Change(Value& field, const Value& value, const char* name) {
    if (field == value) return;
    field = value;
    SaveOption(name, value);
  }

  RegistrySupport registry_;
  bool raw_ = false;
  bool deviceFilterActive_ = false;
  bool paused_ = false;
  std::shared_ptr<sentrel::DeviceFilters> deviceFilters_;
  std::shared_ptr<sentrel::Ipv6DeviceFilters> ipv6DeviceFilters_;
  bool loggingEnabled_ = false;
  std::string logFilename_;
  std::shared_ptr<sentrel::CommunityStrings> communityStrings_;
  std::int32_t oidCacheSize_ = 0;
  ChangedHandler changed_;
};

}  // namespace sentrel
