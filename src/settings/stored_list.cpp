#include "settings/stored_list.h"

#include <algorithm>

namespace sentrel {
namespace {

constexpr std::size_t kCapacity = 200;

std::int32_t NameOf(std::size_t position) {
  return static_cast<std::int32_t>(position + 1);
}

}  // namespace

std::vector<std::string> StoredList::Load() {
  std::vector<std::string> texts;
  for (std::size_t position = 0; position < kCapacity; ++position) {
    texts.push_back(registry_.ReadRegistryValue(kApplicationDescription, section_, NameOf(position),
                                                "", false));
  }
  std::erase(texts, "");
  return texts;
}

void StoredList::Save(std::vector<std::string> texts) {
  texts.resize(std::min(texts.size(), kCapacity));
  if (texts == known_) return;
  RegistrySupport::Batch batch(registry_, RegistryBatch::Write);
  WriteSection(texts);
  if (batch.End()) known_ = std::move(texts);
}

void StoredList::WriteSection(const std::vector<std::string>& texts) const {
  for (std::size_t position = 0; position < kCapacity; ++position) {
    const std::int32_t name = NameOf(position);
    if (position < texts.size()) {
      registry_.SaveRegistryValue(kApplicationDescription, section_, name, texts[position], false);
    } else {
      registry_.DeleteRegistryValue(kApplicationDescription, section_, name);
    }
  }
}

}  // namespace sentrel
