// Any texts as values in the store: options are read or fall back to their defaults, lists hold
// nothing that they would refuse, and what is written back reads the same. The texts stand between
// "|" signs: first the options, then filters, communities and remembered targets in turn.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "controls/auto_combo.h"
#include "fakes/fake_registry.h"
#include "settings/settings.h"

namespace {

constexpr auto kMachine = sentrel::RegistryRoot::HKEY_LOCAL_MACHINE;
constexpr auto kUser = sentrel::RegistryRoot::HKEY_CURRENT_USER;
constexpr const char* kOptions[] = {"Raw", "Device Filter Active", "Logging Enabled",
                                    "Log Filename", "OID Cache Size"};

void Require(bool condition) {
  if (!condition) std::abort();
}

void Store(sentrel::Registry& registry, sentrel::RegistryRoot root, const std::string& section,
           const std::string& name, std::string_view text) {
  const auto key = registry.CreateKey(root, "Software\\VarnholtNet\\Sentrel\\" + section);
  registry.SetStringValue(*key, name, std::string(text));
  registry.CloseKey(*key);
}

void StoreAll(sentrel::Registry& registry, const std::vector<std::string_view>& texts) {
  constexpr std::size_t kFirstOfLists = std::size(kOptions);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i < kFirstOfLists) {
      Store(registry, kMachine, "Settings", kOptions[i], texts[i]);
      continue;
    }
    const std::string number = std::to_string((i - kFirstOfLists) / 3 + 1);
    switch ((i - kFirstOfLists) % 3) {
      case 0:
        Store(registry, kMachine, "Device Filters", number, texts[i]);
        break;
      case 1:
        Store(registry, kMachine, "Community Strings", number, texts[i]);
        break;
      default:
        Store(registry, kUser, "History\\Target", number, texts[i]);
    }
  }
}

/// An entry of blanks alone is none the next time.
std::vector<std::string> Kept(const sentrel::CommunityStrings& communities) {
  std::vector<std::string> texts = communities.CStrings();
  std::erase(texts, "");
  return texts;
}

void CheckSettings(sentrel::Registry& registry) {
  sentrel::Settings settings(registry);
  for (const std::string& key : settings.DeviceFilters()->Keys()) {
    Require(settings.DeviceFilters()->ValidFilter(key));
  }
  settings.DeviceFilters()->Sync();
  settings.CommunityStrings()->Sync();
  const sentrel::Settings again(registry);
  Require(again.Raw() == settings.Raw());
  Require(again.DeviceFilterActive() == settings.DeviceFilterActive());
  Require(again.LoggingEnabled() == settings.LoggingEnabled());
  Require(again.LogFilename() == settings.LogFilename());
  Require(again.OIDCacheSize() == settings.OIDCacheSize());
  Require(again.DeviceFilters()->Keys() == settings.DeviceFilters()->Keys());
  Require(Kept(*again.CommunityStrings()) == Kept(*settings.CommunityStrings()));
}

void CheckHistory(sentrel::Registry& registry) {
  sentrel::AutoCombo box(registry);
  box.SetHistoryApplication(sentrel::kApplicationDescription);
  box.SetHistoryName("Target");
  box.LoadHistory();
  const std::vector<std::string> history = box.History();
  Require(history.size() <= sentrel::AutoCombo::kRemembered);
  box.SaveHistory();
  box.LoadHistory();
  Require(box.History() == history);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  sentrel::FakeRegistry registry;
  StoreAll(registry, sentrel::Split({reinterpret_cast<const char*>(data), size}, "|"));
  CheckSettings(registry);
  CheckHistory(registry);
  Require(registry.AllClosed());
  return 0;
}
