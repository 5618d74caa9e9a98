#include "settings/stored_list.h"

namespace sentrel {
namespace {

constexpr int kCapacity = 200;

}  // namespace

std::vector<std::string> StoredList::Load() const {
  std::vector<std::string> texts;
  for (int index = 1; index <= kCapacity; ++index) {
    std::string text =
        registry_.ReadRegistryValue(kApplicationDescription, section_, index, "", false);
    if (!text.empty()) texts.push_back(std::move(text));
  }
  return texts;
}

void StoredList::Save(const std::vector<std::string>& texts) const {
  const RegistrySupport::Batch batch(registry_, RegistryBatch::Write);
  for (int index = 1; index <= kCapacity; ++index) {
    const auto position = static_cast<std::size_t>(index - 1);
    if (position < texts.size()) {
      registry_.SaveRegistryValue(kApplicationDescription, section_, index, texts[position], false);
    } else {
      registry_.DeleteRegistryValue(kApplicationDescription, section_, index);
    }
  }
}

}  // namespace sentrel
