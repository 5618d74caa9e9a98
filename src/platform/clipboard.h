#pragma once

#include <string>

namespace sentrel {

/// The system's clipboard. Called on the event loop; throws Failure where it cannot be reached.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  /// Puts plain text there (UTF-8, line ends as given), and beside it the same content as HTML for
  /// programs that prefer it.
  virtual void SetText(const std::string& text, const std::string& html) = 0;
};

}  // namespace sentrel
