#include "settings/registry_support.h"

#include <fmt/format.h>

namespace sentrel {
namespace {

std::string KeyPath(const std::string& application, const std::string& section) {
  return fmt::format("Software\\VarnholtNet\\{}\\{}", application, section);
}

RegistryRoot RootOf(bool currentUser) {
  return currentUser ? RegistryRoot::HKEY_CURRENT_USER : RegistryRoot::HKEY_LOCAL_MACHINE;
}

std::string CutAtNul(const std::string& text) {
  return text.substr(0, text.find('\0'));
}

/// A key, or none, that closes itself.
class OpenedKey {
 public:
  OpenedKey(Registry& registry, std::optional<RegistryKey> key) : registry_(registry), key_(key) {}
  ~OpenedKey() {
    if (key_) registry_.CloseKey(*key_);
  }
  OpenedKey(const OpenedKey&) = delete;
  OpenedKey& operator=(const OpenedKey&) = delete;

  explicit operator bool() const { return key_.has_value(); }
  RegistryKey operator*() const { return *key_; }

 private:
  Registry& registry_;
  std::optional<RegistryKey> key_;
};

}  // namespace

void RegistrySupport::SaveRegistryValue(const std::string& Application, const std::string& Section,
                                        const OptionText& ValueName, const OptionText& Value,
                                        bool CurrentUser) const {
  const OpenedKey key(*registry_,
                      registry_->CreateKey(RootOf(CurrentUser), KeyPath(Application, Section)));
  if (key) registry_->SetStringValue(*key, ValueName.Text(), Value.Text());
}

std::string RegistrySupport::ReadRegistryValue(const std::string& Application,
                                               const std::string& Section,
                                               const OptionText& ValueName,
                                               const OptionText& Default, bool CurrentUser) const {
  return ReadRegistryKeyValue(RootOf(CurrentUser), KeyPath(Application, Section), ValueName.Text(),
                              Default);
}

std::string RegistrySupport::ReadRegistryKeyValue(RegistryRoot Root, const std::string& KeyPath,
                                                  const std::string& ValueName,
                                                  const OptionText& Default) const {
  const OpenedKey key(*registry_, registry_->OpenKey(Root, KeyPath));
  if (!key) return Default.Text();
  const auto text = registry_->QueryStringValue(*key, ValueName);
  return text ? CutAtNul(*text) : Default.Text();
}

void RegistrySupport::DeleteRegistryValue(const std::string& Application,
                                          const std::string& Section,
                                          const OptionText& ValueName) const {
  const OpenedKey key(*registry_, registry_->OpenKey(RegistryRoot::HKEY_LOCAL_MACHINE,
                                                     KeyPath(Application, Section)));
  if (key) registry_->DeleteValue(*key, ValueName.Text());
}

bool RegistrySupport::IsUnreachable(const std::string& Application,
                                    const std::string& Section) const {
  return registry_->IsUnreachable(RegistryRoot::HKEY_LOCAL_MACHINE, KeyPath(Application, Section));
}

}  // namespace sentrel
