#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/registry.h"

namespace sentrel {

/// An edit box that remembers the texts that were used last, for this user and beyond the run. Used
/// on the event loop only; tells no failure of the store.
class AutoCombo {
 public:
  /// The longest history.
  static constexpr std::size_t kRemembered = 20;

  /// The registry must outlive the control.
  explicit AutoCombo(Registry& registry) : registry_(registry) {}

  /// At most one; it is called after each change of text or history and must outlive the control or
  /// be taken away with nullptr.
  void SetObserver(std::function<void()> onChange) { onChange_ = std::move(onChange); }

  const std::string& Text() const { return text_; }
  void SetText(const std::string& text);

  /// The application and the name under which the history is stored.
  void SetHistoryApplication(const std::string& word) { application_ = word; }
  void SetHistoryName(const std::string& name) { name_ = name; }

  /// Newest first, each text once.
  const std::vector<std::string>& History() const { return history_; }
  /// Puts the text first; the oldest goes when there are too many.
  void AddToHistory(const std::string& text);
  /// Takes the stored history, and its newest text, or none, into the edit box.
  void LoadHistory();
  void SaveHistory();

 private:
  std::string KeyPath() const;
  void Changed() const;

  Registry& registry_;
  std::function<void()> onChange_;
  std::string application_;
  std::string name_;
  std::string text_;
  std::vector<std::string> history_;
};

}  // namespace sentrel
