#include "decoding/decoder.h"

#include <cstdint>

namespace sentrel {

Decoder::Decoder(MibLibrary& library, const Settings& settings)
    : library_(library), settings_(settings) {}

std::shared_ptr<OIDObject> Decoder::GetOID(const std::string& SearchOID) {
  const auto known = cache_.find(SearchOID);
  if (known != cache_.end()) return known->second;
  std::shared_ptr<OIDObject> object = library_.MakeOIDObject();
  object->SetOID(SearchOID);
  return cache_.emplace(SearchOID, std::move(object)).first->second;
}

void Decoder::CheckCacheSize() {
  if (settings_.OIDCacheSize() < static_cast<std::int64_t>(cache_.size())) Forget();
}

}  // namespace sentrel
