#pragma once

#include <string>

namespace sentrel {

enum class MessageIcon { Exclamation, CriticalStop };

/// A modal box with a text, an icon and an OK button.
class MessageBox {
 public:
  virtual ~MessageBox() = default;
  /// Returns when the user has acknowledged the text (UTF-8, CR LF or CR between lines, never read
  /// as markup). Events go on being handled meanwhile.
  virtual void Show(const std::string& text, MessageIcon icon,
                    const std::string& title = "Sentrel") = 0;
};

}  // namespace sentrel
