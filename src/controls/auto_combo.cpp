#include "controls/auto_combo.h"

#include <fmt/format.h>

#include <algorithm>

namespace sentrel {

void AutoCombo::SetText(const std::string& text) {
  if (text == text_) return;
  text_ = text;
  Changed();
}

void AutoCombo::AddToHistory(const std::string& text) {
  const std::string newest = text;
  std::erase(history_, newest);
  history_.insert(history_.begin(), newest);
  history_.resize(std::min(history_.size(), kRemembered));
  Changed();
}

void AutoCombo::LoadHistory() {
  history_.clear();
  registry_.BeginBatch(RegistryBatch::Read);
  if (const auto key = registry_.OpenKey(RegistryRoot::HKEY_CURRENT_USER, KeyPath())) {
    while (history_.size() < kRemembered) {
      auto text = registry_.QueryStringValue(*key, std::to_string(history_.size() + 1));
      if (!text) break;
      history_.push_back(std::move(*text));
    }
    registry_.CloseKey(*key);
  }
  registry_.EndBatch();
  text_ = history_.empty() ? "" : history_.front();
  Changed();
}

void AutoCombo::SaveHistory() {
  registry_.BeginBatch(RegistryBatch::Write);
  if (const auto key = registry_.CreateKey(RegistryRoot::HKEY_CURRENT_USER, KeyPath())) {
    for (std::size_t i = 0; i < history_.size(); ++i) {
      registry_.SetStringValue(*key, std::to_string(i + 1), history_[i]);
    }
    registry_.CloseKey(*key);
  }
  registry_.EndBatch();
}

std::string AutoCombo::KeyPath() const {
  return fmt::format("Software\\VarnholtNet\\{}\\History\\{}", application_, name_);
}

void AutoCombo::Changed() const {
  if (onChange_) onChange_();
}

}  // namespace sentrel
