#pragma once

#include <string>

#include "platform/registry.h"

// Keys opened and closed again for one call.

namespace sentrel {

inline bool SetText(Registry& registry, RegistryRoot root, const std::string& path,
                    const std::string& name, const std::string& text) {
  const auto key = registry.CreateKey(root, path);
  return key && registry.SetStringValue(*key, name, text) & registry.CloseKey(*key);
}

/// "-" where there is no key or no text.
inline std::string GetText(Registry& registry, RegistryRoot root, const std::string& path,
                           const std::string& name) {
  const auto key = registry.OpenKey(root, path);
  if (!key) return "-";
  const auto text = registry.QueryStringValue(*key, name);
  registry.CloseKey(*key);
  return text.value_or("-");
}

inline bool DeleteText(Registry& registry, RegistryRoot root, const std::string& path,
                       const std::string& name) {
  const auto key = registry.OpenKey(root, path);
  return key && registry.DeleteValue(*key, name) & registry.CloseKey(*key);
}

}  // namespace sentrel
