#include "shell/tip_of_the_day.h"

#include "common/failure.h"

namespace sentrel {
namespace {

constexpr const char* kFamily = "Varnholt 2003";
constexpr const char* kSection = "Common";
constexpr const char* kToolTips = "ToolTips";

}  // namespace

bool TipsAtStart(const RegistrySupport& registry) {
  const std::string text = registry.ReadRegistryValue(kFamily, kSection, kToolTips, true, false);
  return ReadBoolean(text).value_or(false);
}

void SetTipsAtStart(const RegistrySupport& registry, bool wanted) {
  registry.SaveRegistryValue(kFamily, kSection, kToolTips, wanted, false);
}

TipOfTheDay::TipOfTheDay(const Application& application, const ProgramIdentity& program,
                         const RegistrySupport& registry, TipDialogFactory& dialogs)
    : application_(application), program_(program), registry_(registry), dialogs_(dialogs) {}

void TipOfTheDay::ShowTipOfTheDay(const std::string& TipSet, bool Force) {
  if (!TipsAtStart(registry_) && !Force) return;
  std::unique_ptr<TipDialog> dialog;
  if (!Attempt([&] { dialog = dialogs_.Create(); })) return;
  Attempt([&] { dialog->SetProgramName(program_.fileDescription); });
  Attempt([&] { dialog->SetPath(application_.ProgramFolder()); });
  Attempt([&] { dialog->Show(TipSet); });
}

}  // namespace sentrel
