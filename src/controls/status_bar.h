#pragma once

#include <functional>
#include <string>
#include <utility>

namespace sentrel {

/// The status line of the main window: one text. Used on the event loop only.
class StatusBar {
 public:
  /// At most one; it is called after each change and must outlive the control.
  void SetObserver(std::function<void()> onChange) { onChange_ = std::move(onChange); }

  const std::string& Text() const { return text_; }
  void SetText(const std::string& text) {
    text_ = text;
    if (onChange_) onChange_();
  }

 private:
  std::string text_;
  std::function<void()> onChange_;
};

}  // namespace sentrel
