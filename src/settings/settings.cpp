#include "settings/settings.h"

#include "common/text.h"
#include "settings/ip_functions.h"

namespace sentrel {
namespace {

constexpr const char* kSection = "Settings";
constexpr std::int32_t kDefaultOIDCacheSize = 1000;

}  // namespace

Settings::Settings(Registry& registry)
    : registry_(registry),
      deviceFilters_(std::make_shared<sentrel::DeviceFilters>(registry_)),
      ipv6DeviceFilters_(std::make_shared<sentrel::Ipv6DeviceFilters>(registry_)),
      communityStrings_(std::make_shared<sentrel::CommunityStrings>(registry_)) {
  Refresh();
}

bool Settings::AcceptsDevice(const std::string& address) const {
  if (!deviceFilterActive_) return true;
  return IsIPAddress(address) ? deviceFilters_->AddressInFilters(address)
                              : ipv6DeviceFilters_->AddressInFilters(address);
}

void Settings::SetLogFilename(std::string& Filename) {
  Filename = std::string(TrimBlanks(Filename));
  Change(logFilename_, Filename, "Log Filename");
}

std::string Settings::RetrieveOption(const std::string& Name, const OptionText& Default) const {
  return registry_.ReadRegistryValue(kApplicationDescription, kSection, Name, Default, false);
}

void Settings::SaveOption(const std::string& Name, const OptionText& Value) {
  registry_.SaveRegistryValue(kApplicationDescription, kSection, Name, Value, false);
  if (changed_) changed_(Name, Value.Text());
}

void Settings::Refresh() {
  const RegistrySupport::Batch batch(registry_, RegistryBatch::PatientRead);
  raw_ = ReadBoolean(RetrieveOption("Raw", false)).value_or(false);
  deviceFilterActive_ = ReadBoolean(RetrieveOption("Device Filter Active", false)).value_or(false);
  loggingEnabled_ = ReadBoolean(RetrieveOption("Logging Enabled", false)).value_or(false);
  logFilename_ = RetrieveOption("Log Filename", "");
  oidCacheSize_ = ReadLong(RetrieveOption("OID Cache Size", kDefaultOIDCacheSize))
                      .value_or(kDefaultOIDCacheSize);
  deviceFilters_->Refresh();
  ipv6DeviceFilters_->Refresh();
  communityStrings_->Refresh();
  // A list that nobody could read must not refuse every trap.
  if (deviceFilters_->IsUnreachable()) deviceFilterActive_ = false;
}

}  // namespace sentrel
