#pragma once

#include <string>

#include "platform/about_dialog.h"
#include "platform/clock.h"
#include "platform/main_window.h"
#include "platform/program_identity.h"
#include "platform/version_reader.h"

namespace sentrel {

/// The about box. A dialog that cannot be had, and a text that cannot, is passed over.
class AboutBox {
 public:
  AboutBox(const Application& application, const ProgramIdentity& program,
           const VersionReader& versions, const Locale& locale, AboutDialogFactory& dialogs);

  /// An empty text stands for the versions of the running program.
  void ShowAboutBox(const Icon& icon, const std::string& VersionText);

 private:
  /// "Version 9.2 May 2007": made once per run.
  const std::string& VersionLine();
  std::string OwnVersions();

  const Application& application_;
  ProgramIdentity program_;
  const VersionReader& versions_;
  const Locale& locale_;
  AboutDialogFactory& dialogs_;
  std::string versionLine_;
};

}  // namespace sentrel
