#pragma once

#include <string>
#include <utility>

#include "platform/main_window.h"

namespace sentrel {

/// What the toolkit knows of the program: where its file is, and what it is called. Used on the
/// event loop only.
class DesktopApplication : public Application {
 public:
  /// The layout folder is the program folder, or, where that cannot be written, the user's.
  explicit DesktopApplication(std::string userFolder) : userFolder_(std::move(userFolder)) {}
  std::string ProgramFolder() const override;
  std::string ExecutableName() const override;
  std::string LayoutFolder() const override;
  void SetHelpFile(const std::string& path) override { helpFile_ = path; }
  /// As last set; empty at first.
  const std::string& HelpFile() const { return helpFile_; }

 private:
  std::string userFolder_;
  std::string helpFile_;
};

}  // namespace sentrel
