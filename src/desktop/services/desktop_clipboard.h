#pragma once

#include <string>

#include "platform/clipboard.h"

namespace sentrel {

class DesktopClipboard : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text, const std::string& html) override;
};

}  // namespace sentrel
