#pragma once

#include <string>

#include "platform/registry.h"
#include "settings/option_text.h"

namespace sentrel {

/// The application word of this program's option keys.
inline constexpr const char* kApplicationDescription = "Sentrel";

/// Text values in the store, under keys named by an application and a section. A read that fails
/// gives the default, a write that fails is lost. A copy works on the same registry, on the event
/// loop.
class RegistrySupport {
 public:
  explicit RegistrySupport(Registry& registry) : registry_(&registry) {}

  /// Makes the key if it is missing. `CurrentUser` false selects the machine's tree.
  void SaveRegistryValue(const std::string& Application, const std::string& Section,
                         const OptionText& ValueName, const OptionText& Value,
                         bool CurrentUser) const;
  /// Makes no key. A value that is no text counts as missing; a text ends before its first NUL.
  std::string ReadRegistryValue(const std::string& Application, const std::string& Section,
                                const OptionText& ValueName, const OptionText& Default,
                                bool CurrentUser) const;
  /// The same with root and path given whole.
  std::string ReadRegistryKeyValue(RegistryRoot Root, const std::string& KeyPath,
                                   const std::string& ValueName, const OptionText& Default) const;
  /// Always in the machine's tree. A missing key or value is no fault.
  void DeleteRegistryValue(const std::string& Application, const std::string& Section,
                           const OptionText& ValueName) const;

  /// Whether the section, in the machine's tree, could not be read, as Registry tells.
  bool IsUnreachable(const std::string& Application, const std::string& Section) const;

  /// Binds all reads or writes of its lifetime together, as Registry tells.
  class [[nodiscard]] Batch {
   public:
    Batch(const RegistrySupport& support, RegistryBatch kind) : registry_(*support.registry_) {
      registry_.BeginBatch(kind);
    }
    ~Batch() {
      if (!ended_) registry_.EndBatch();
    }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    /// Ends it early. Returns false where what was written is lost. Called at most once.
    bool End() {
      ended_ = true;
      return registry_.EndBatch();
    }

   private:
    Registry& registry_;
    bool ended_ = false;
  };

 private:
  Registry* registry_;
};

}  // namespace sentrel
