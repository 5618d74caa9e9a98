#include "sending/send_form.h"

#include "common/failure.h"
#include "common/text.h"
#include "settings/ip_functions.h"
#include "settings/registry_support.h"

namespace sentrel {
namespace {

constexpr int kHelpContext = 9100;

constexpr char kTitle[] = "Send Trap";
constexpr char kErrorTitle[] = "Send Trap Error";
constexpr char kNoTarget[] = "Please enter a Hostname or IP Address first.";
constexpr char kNotResolved[] =
    "SNMP Sentrel was unable to complete the request. Ensure you specified the appropriate "
    "hostname, IP address, community string, and that your firewall allows SNMP traffic.";

void Load(AutoCombo& combo, const char* name) {
  combo.SetHistoryApplication(kApplicationDescription);
  combo.SetHistoryName(name);
  combo.LoadHistory();
}

}  // namespace

SendForm::SendForm(SendFormView& view, SNMP& snmp, MessageBox& messageBox, Registry& registry)
    : view_(view), snmp_(snmp), messageBox_(messageBox), target_(registry), community_(registry) {}

void SendForm::SendTrap(const TrapObject& trap) {
  trap_ = &trap;
  Form_Load();
  view_.ShowModal();
}

void SendForm::Form_Load() {
  view_.SetHelpContext(kHelpContext);
  Load(target_, "Target");
  Load(community_, "Community");
  if (community_.Text().empty()) community_.SetText("public");
}

void SendForm::Form_Resize() {
  Attempt([&] {
    const Area inner = view_.InnerArea();
    view_.MoveMessage({0, 0, inner.width, inner.height});
  });
}

void SendForm::Form_Unload() {
  trap_ = nullptr;
}

void SendForm::cmdCancel_Click() {
  view_.Unload();
}

void SendForm::cmdSend_Click() {
  target_.SetText(std::string(TrimBlanks(target_.Text())));
  if (target_.Text().empty()) {
    messageBox_.Show(kNoTarget, MessageIcon::Exclamation, kTitle);
    view_.FocusTarget();
    return;
  }
  if (IsIPAddress(target_.Text())) {
    Send(target_.Text());
  } else {
    LookUpAndSend();
  }
}

void SendForm::LookUpAndSend() {
  if (!ShowsAtWork("Looking up the host name ...")) return;
  const std::string address = snmp_.ResolveHost(target_.Text());
  if (IsIPAddress(address)) {
    Send(address);
    return;
  }
  messageBox_.Show(kNotResolved, MessageIcon::Exclamation, kTitle);
  ShowForAnotherTry();
}

bool SendForm::ShowsAtWork(const std::string& caption) {
  view_.ShowMessage(caption);
  view_.SetHourglass(true);
  view_.ProcessEvents();
  return trap_ != nullptr;
}

void SendForm::ShowForAnotherTry() {
  view_.HideMessage();
  view_.SetHourglass(false);
  view_.FocusTarget();
}

void SendForm::Send(const std::string& address) {
  if (!ShowsAtWork("Sending SNMP Trap ...")) return;
  const VarBinds& bindings = trap_->VarBinds();
  if (snmp_.SendTrap(address, community_.Text(), bindings.OIDList(), bindings.ValueList(),
                     bindings.TypeList()) != 0) {
    TellThatSendFailed();
    return;
  }
  Remember(target_);
  Remember(community_);
  view_.Unload();
}

void SendForm::TellThatSendFailed() {
  const std::string status = snmp_.StatusText();
  messageBox_.Show(status == "OK" ? "Can't send trap" : status, MessageIcon::Exclamation,
                   kErrorTitle);
  ShowForAnotherTry();
}

void SendForm::Remember(AutoCombo& combo) {
  combo.AddToHistory(combo.Text());
  combo.SaveHistory();
}

}  // namespace sentrel
