#pragma once

#include <memory>
#include <string>

namespace sentrel {

/// Shows tips, one at a time, and lets the user choose whether they come at each start. Called on
/// the event loop; any call may throw Failure.
class TipDialog {
 public:
  virtual ~TipDialog() = default;
  virtual void SetProgramName(const std::string& text) = 0;
  /// The folder of the program, beside which the tips lie.
  virtual void SetPath(const std::string& folder) = 0;
  /// Returns when the user has closed the dialog. Events go on being handled meanwhile. Fails where
  /// the set has no tips.
  virtual void Show(const std::string& tipSet) = 0;
};

/// Makes tip dialogs.
class TipDialogFactory {
 public:
  virtual ~TipDialogFactory() = default;
  /// Never null. Throws Failure when none can be had.
  virtual std::unique_ptr<TipDialog> Create() = 0;
};

}  // namespace sentrel
