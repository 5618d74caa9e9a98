#pragma once

#include <memory>
#include <string>

namespace sentrel {

/// A picture that the desktop knows by a name.
struct Icon {
  std::string name;
};

/// The box that tells what the program is. The texts are set before the one call of Show. Called on
/// the event loop; any call may throw Failure.
class AboutDialog {
 public:
  virtual ~AboutDialog() = default;
  virtual void SetProgramName(const std::string& text) = 0;
  virtual void SetPackageName(const std::string& text) = 0;
  virtual void SetPackage(const std::string& text) = 0;
  virtual void SetSubTitle(const std::string& text) = 0;
  /// CR LF between lines.
  virtual void SetVersionInfo(const std::string& text) = 0;
  virtual void SetProgIcon(const Icon& icon) = 0;
  /// Returns when the user has closed the box. Events go on being handled meanwhile.
  virtual void Show() = 0;
};

/// Makes about boxes.
class AboutDialogFactory {
 public:
  virtual ~AboutDialogFactory() = default;
  /// Never null. Throws Failure when none can be had.
  virtual std::unique_ptr<AboutDialog> Create() = 0;
};

}  // namespace sentrel
