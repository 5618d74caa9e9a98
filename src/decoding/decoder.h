#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "platform/oid_object.h"
#include "settings/settings.h"

namespace sentrel {

/// Hands out one OID object per distinct text, so that a repeated OID costs one look-up. Used on
/// the event loop only.
class Decoder {
 public:
  /// Both must outlive the decoder.
  Decoder(MibLibrary& library, const Settings& settings);

  /// The object for exactly this text. Throws Failure where none can be had; the text is then tried
  /// again at its next occurrence. An object that someone holds stays usable after its removal
  /// here.
  std::shared_ptr<OIDObject> GetOID(const std::string& SearchOID);

  /// Removes all objects at once where they are more than Settings.OIDCacheSize, read at each call.
  void CheckCacheSize();

  /// Removes all objects: the MIB database has changed.
  void Forget() { cache_.clear(); }

 private:
  MibLibrary& library_;
  const Settings& settings_;
  std::unordered_map<std::string, std::shared_ptr<OIDObject>> cache_;
};

}  // namespace sentrel
