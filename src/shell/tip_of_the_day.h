#pragma once

#include <string>

#include "platform/main_window.h"
#include "platform/program_identity.h"
#include "platform/tip_dialog.h"
#include "settings/registry_support.h"

namespace sentrel {

/// The tips of the product family.
inline constexpr const char* kTipSet = "Benchwells";

/// Whether tips come at start, which all programs of the family share. A text that is no Boolean
/// counts as false.
bool TipsAtStart(const RegistrySupport& registry);
void SetTipsAtStart(const RegistrySupport& registry, bool wanted);

/// The tip of the day. A dialog that cannot be had is passed over.
class TipOfTheDay {
 public:
  TipOfTheDay(const Application& application, const ProgramIdentity& program,
              const RegistrySupport& registry, TipDialogFactory& dialogs);

  /// Without `Force` nothing is shown to a user who does not want tips at start.
  void ShowTipOfTheDay(const std::string& TipSet, bool Force);

 private:
  const Application& application_;
  ProgramIdentity program_;
  RegistrySupport registry_;
  TipDialogFactory& dialogs_;
};

}  // namespace sentrel
