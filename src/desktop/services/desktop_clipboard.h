#pragma once

#include <string>

#include "platform/clipboard.h"

namespace sentrel {

/// The clipboard of the desktop, which all programs share. Used on the event loop only.
class DesktopClipboard : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text, const std::string& html) override;
};

}  // namespace sentrel
