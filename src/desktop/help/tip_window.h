#pragma once

#include <QWidget>

#include "platform/clock.h"
#include "platform/tip_dialog.h"
#include "settings/registry_support.h"

namespace sentrel {

/// Makes tip dialogs that stand above the owner and open at the tip of the day. The tips of a set
/// lie in the file "tips/<set>.txt" of the program folder. All references must outlive the dialogs.
class TipWindowFactory : public TipDialogFactory {
 public:
  TipWindowFactory(QWidget& owner, const RegistrySupport& registry, const Clock& clock)
      : owner_(owner), registry_(registry), clock_(clock) {}
  std::unique_ptr<TipDialog> Create() override;

 private:
  QWidget& owner_;
  RegistrySupport registry_;
  const Clock& clock_;
};

}  // namespace sentrel
