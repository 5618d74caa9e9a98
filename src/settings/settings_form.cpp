#include "settings/settings_form.h"

#include <utility>

#include "common/text.h"

namespace sentrel {

using namespace settings_controls;

namespace {

constexpr int kHelpContext = 9100;
constexpr int kGeneralTab = 1;
constexpr int kLoggingTab = 4;
constexpr int kVersion3UsersTab = 5;
constexpr char32_t kEnter = U'\r';

constexpr const char* kExamples =
    "10.0.1.23\r\n"
    "10.0.1.1 - 10.0.1.255\r\n"
    "10.0.1.0/24\r\n"
    "10.0.1.0/255.255.255.0";
constexpr const char* kExampleKinds =
    "Single IP Address\r\n"
    "IP Address Range\r\n"
    "Subnet\r\n"
    "Subnet";

constexpr const char* kFilterNotValid = "Please enter a valid Filter first.";
constexpr const char* kIpv6FilterNotValid =
    "Please enter a valid IPv6 Filter first.\r\n\r\n"
    "It is an address (2001:db8::1), a prefix (2001:db8::/32) or a range from low to high "
    "(2001:db8::1 - 2001:db8::ff). A link-local address may name an interface (fe80::1%eth0).";
constexpr const char* kIpv4FilterInIpv6Box =
    "This is an IPv4 Filter: please add it to the IPv4 list above.";
constexpr const char* kIpv6Refused =
    "No IPv6 filter: traps that come over IPv6 are refused. ::/0 accepts all of them.";
constexpr const char* kIpv6Unknown =
    "The stored IPv6 filters could not be read: traps that come over IPv6 are not filtered.";
constexpr const char* kCommunityMissing = "Please enter an SNMP Community string first.";
constexpr const char* kFiltersMissing =
    "You have enabled Device Filtering, but have not added any Device Filters.\r\n\r\n"
    "Please add at least one Device Filter or disable Device Filtering.";

}  // namespace

void SettingsForm::Form_Load() {
  view_.SetHelpContext(kHelpContext);
  view_.SelectTab(kGeneralTab);
  view_.SetChecked(kCheckDecode, !settings_.Raw());
  view_.SetChecked(kCheckRaw, settings_.Raw());
  view_.SetChecked(kCheckDeviceFilter, settings_.DeviceFilterActive());
  view_.SetChecked(kCheckLoggingActive, settings_.LoggingEnabled());
  view_.SetText(kLogFilename, logFile_.WholePath(settings_.LogFilename()));
  shownLog_ = view_.Text(kLogFilename);
  LoadCommunities();
  ShowCommunityControls();
  LoadDeviceFilters();
  version3Users_.Load();
  ShowLoggingControls();
  view_.SetText(kExampleList, kExamples);
  view_.SetText(kExampleNames, kExampleKinds);
  ShowDeviceFilterControls();
}

void SettingsForm::LoadCommunities() {
  const auto& communities = settings_.CommunityStrings();
  view_.SetChecked(kCheckCommunity, communities->Count() > 0);
  // The click that this may have been has put a line into the list.
  view_.ClearLines(kCommunityList);
  const std::vector<std::string> stored = communities->CStrings();
  for (const std::string& community : stored) view_.AddLine(kCommunityList, community);
  const std::vector<std::string> shown = view_.Lines(kCommunityList);
  shownCommunities_.clear();
  for (std::size_t i = 0; i < shown.size(); ++i) shownCommunities_.emplace(shown[i], stored[i]);
}

void SettingsForm::LoadDeviceFilters() {
  const auto& filters = settings_.DeviceFilters();
  for (const std::string& key : filters->Keys())
    view_.AddLine(kDeviceFilterList, filters->Item(key)->Description());
  for (const std::string& key : settings_.Ipv6DeviceFilters()->Keys())
    view_.AddLine(kIpv6DeviceFilterList, key);
}

void SettingsForm::ShowDeviceFilterControls() {
  const bool active = view_.Checked(kCheckDeviceFilter);
  Show({kAddLabel, kNewDeviceFilter, kCmdAddDeviceFilter, kExamplesLabel, kExampleList,
        kExampleNames, kDeviceFilterList, kCmdDeleteDeviceFilter, kAddIpv6Label,
        kNewIpv6DeviceFilter, kCmdAddIpv6DeviceFilter, kIpv6DeviceFilterList,
        kCmdDeleteIpv6DeviceFilter, kIpv6Note},
       active);
  ShowIpv6Note();
  if (active) view_.SetFocus(kNewDeviceFilter);
}

void SettingsForm::ShowIpv6Note() {
  const bool hasFilter = !view_.Lines(kIpv6DeviceFilterList).empty();
  const bool isUnknown = settings_.Ipv6DeviceFilters()->IsUnknown();
  view_.SetText(kIpv6Note, hasFilter ? "" : isUnknown ? kIpv6Unknown : kIpv6Refused);
}

void SettingsForm::ShowCommunityControls() {
  Show({kNewCommunity, kNewCommunityLabel, kCmdAddCommunity, kCommunityList, kCmdDeleteCommunity},
       view_.Checked(kCheckCommunity));
}

void SettingsForm::ShowLoggingControls() {
  const bool active = view_.Checked(kCheckLoggingActive);
  Show({kLogLabel, kLogFilename, kCmdSelectLogFile, kLogProblem}, active);
  if (active) FindsNewLogProblem();
}

void SettingsForm::Show(std::initializer_list<SettingsControl> controls, bool visible) {
  for (const SettingsControl control : controls) view_.SetVisible(control, visible);
}

void SettingsForm::checkDeviceFilter_Click() {
  ShowDeviceFilterControls();
}

void SettingsForm::checkCommunity_Click() {
  ShowCommunityControls();
  if (view_.Checked(kCheckCommunity)) {
    view_.AddLine(kCommunityList, "public");
  } else {
    view_.ClearLines(kCommunityList);
  }
}

void SettingsForm::checkLoggingActive_Click() {
  ShowLoggingControls();
}

void SettingsForm::cmdAddDeviceFilter_Click() {
  const std::string text(TrimBlanks(view_.Text(kNewDeviceFilter)));
  if (!settings_.DeviceFilters()->ValidFilter(text)) {
    messageBox_.Show(kFilterNotValid, MessageIcon::Exclamation);
    return;
  }
  DeviceFilter filter;
  filter.SetFilter(text);
  view_.AddLine(kDeviceFilterList, filter.Description());
  Reenter(deviceFilterEntry_);
}

void SettingsForm::cmdAddIpv6DeviceFilter_Click() {
  const std::string text(TrimBlanks(view_.Text(kNewIpv6DeviceFilter)));
  const auto filter = Ipv6DeviceFilter::Of(text);
  if (!filter) {
    const bool isIpv4 = settings_.DeviceFilters()->ValidFilter(text);
    messageBox_.Show(isIpv4 ? kIpv4FilterInIpv6Box : kIpv6FilterNotValid, MessageIcon::Exclamation);
    return;
  }
  view_.AddLine(kIpv6DeviceFilterList, filter->Text());
  ShowIpv6Note();
  Reenter(ipv6DeviceFilterEntry_);
}

void SettingsForm::cmdAddCommunity_Click() {
  const std::string text(TrimBlanks(view_.Text(kNewCommunity)));
  view_.SetText(kNewCommunity, text);
  if (text.empty()) {
    messageBox_.Show(kCommunityMissing, MessageIcon::Exclamation);
    return;
  }
  view_.AddLine(kCommunityList, text);
  Reenter(communityEntry_);
}

void SettingsForm::Propose(const Entry& entry, const std::string& text) {
  view_.SelectTab(entry.tab);
  view_.SetText(entry.box, text);
  view_.SelectText(entry.box);
  view_.SetFocus(entry.box);
}

void SettingsForm::Reenter(Entry& entry) {
  entry.settled = TrimBlanks(view_.Text(entry.box));
  view_.SelectText(entry.box);
  view_.SetFocus(entry.box);
}

bool SettingsForm::TellsOfNewEntry(Entry& entry) {
  const std::string text(TrimBlanks(view_.Text(entry.box)));
  if (!view_.Checked(entry.group) || text.empty() || text == entry.settled) return false;
  view_.SelectTab(entry.tab);
  messageBox_.Show("\"" + text + "\" has not been added.\r\n\r\n" +
                       "Press Add to add it, or OK once more to go on without it.",
                   MessageIcon::Exclamation);
  Reenter(entry);
  return true;
}

bool SettingsForm::NewDeviceFilter_KeyPress(char32_t key) {
  if (key != kEnter) return false;
  cmdAddDeviceFilter_Click();
  return true;
}

bool SettingsForm::NewIpv6DeviceFilter_KeyPress(char32_t key) {
  if (key != kEnter) return false;
  cmdAddIpv6DeviceFilter_Click();
  return true;
}

bool SettingsForm::NewCommunity_KeyPress(char32_t key) {
  if (key != kEnter) return false;
  cmdAddCommunity_Click();
  return true;
}

void SettingsForm::DeviceFilterList_Click() {
  EnableRemoval(kDeviceFilterList, kCmdDeleteDeviceFilter);
}

void SettingsForm::Ipv6DeviceFilterList_Click() {
  EnableRemoval(kIpv6DeviceFilterList, kCmdDeleteIpv6DeviceFilter);
}

void SettingsForm::CommunityList_Click() {
  EnableRemoval(kCommunityList, kCmdDeleteCommunity);
}

void SettingsForm::cmdDeleteDeviceFilter_Click() {
  RemoveSelected(kDeviceFilterList, kCmdDeleteDeviceFilter);
}

void SettingsForm::cmdDeleteIpv6DeviceFilter_Click() {
  RemoveSelected(kIpv6DeviceFilterList, kCmdDeleteIpv6DeviceFilter);
  ShowIpv6Note();
}

void SettingsForm::cmdDeleteCommunity_Click() {
  RemoveSelected(kCommunityList, kCmdDeleteCommunity);
}

void SettingsForm::RemoveSelected(SettingsList list, SettingsButton removeButton) {
  if (const auto selected = view_.SelectedLine(list)) view_.RemoveLine(list, *selected);
  EnableRemoval(list, removeButton);
}

void SettingsForm::EnableRemoval(SettingsList list, SettingsButton removeButton) {
  const auto selected = view_.SelectedLine(list);
  view_.SetEnabled(removeButton, selected && !view_.Lines(list)[*selected].empty());
}

std::string SettingsForm::LogPath() const {
  if (LogIsUnchanged()) return logFile_.WholePath(settings_.LogFilename());
  return logFile_.WholePath(std::string(TrimBlanks(view_.Text(kLogFilename))));
}

bool SettingsForm::FindsNewLogProblem() {
  const std::string path = LogPath();
  const std::string problem = path.empty() ? "" : logFile_.Obstacle(path);
  view_.SetText(kLogProblem, problem);
  if (problem.empty()) return false;
  return std::exchange(problemFile_, path) != path;
}

void SettingsForm::LogFilename_LostFocus() {
  view_.SetText(kLogFilename, LogPath());
}

void SettingsForm::cmdSelectLogFile_Click() {
  const auto chosen = fileDialog_.ChooseSaveFile({.title = "Trap Logging File ...",
                                                  .filter = "All Files (*.*)|*.*",
                                                  .fileName = view_.Text(kLogFilename)});
  if (!chosen) return;
  view_.SetText(kLogFilename, *chosen);
  FindsNewLogProblem();
}

void SettingsForm::cmdOK_Click() {
  if (view_.Checked(kCheckDeviceFilter) && view_.Lines(kDeviceFilterList).empty()) {
    view_.SelectTab(deviceFilterEntry_.tab);
    messageBox_.Show(kFiltersMissing, MessageIcon::Exclamation);
    view_.SetFocus(kNewDeviceFilter);
    return;
  }
  for (Entry* entry : {&deviceFilterEntry_, &ipv6DeviceFilterEntry_, &communityEntry_})
    if (TellsOfNewEntry(*entry)) return;
  if (view_.Checked(kCheckLoggingActive) && FindsNewLogProblem()) {
    view_.SelectTab(kLoggingTab);
    view_.SetFocus(kLogFilename);
    return;
  }
  if (const std::string failure = version3Users_.Save(); !failure.empty()) {
    view_.SelectTab(kVersion3UsersTab);
    messageBox_.Show(failure, MessageIcon::Exclamation);
    return;
  }
  SaveOptions();
  SaveCommunities();
  SaveDeviceFilters();
  SaveIpv6DeviceFilters();
  view_.Close();
}

void SettingsForm::SaveOptions() {
  settings_.SetRaw(view_.Checked(kCheckRaw));
  settings_.SetDeviceFilterActive(view_.Checked(kCheckDeviceFilter));
  settings_.SetLoggingEnabled(view_.Checked(kCheckLoggingActive));
  if (!settings_.LoggingEnabled() || LogIsUnchanged()) return;
  std::string filename = LogPath();
  settings_.SetLogFilename(filename);
}

void SettingsForm::SaveCommunities() {
  const auto& communities = settings_.CommunityStrings();
  communities->Clear();
  for (const std::string& line : view_.Lines(kCommunityList)) {
    const auto stored = shownCommunities_.lower_bound(line);
    const bool isStored = stored != shownCommunities_.end() && stored->first == line;
    communities->Add(isStored ? shownCommunities_.extract(stored).mapped() : line);
  }
  communities->Sync();
}

void SettingsForm::SaveDeviceFilters() {
  const auto& filters = settings_.DeviceFilters();
  filters->Clear();
  for (const std::string& line : view_.Lines(kDeviceFilterList)) {
    const auto colon = line.find(':');
    if (colon != std::string::npos)
      filters->AddFilter(std::string(TrimBlanks(std::string_view(line).substr(colon + 1))));
  }
  filters->Sync();
}

void SettingsForm::SaveIpv6DeviceFilters() {
  const auto& filters = settings_.Ipv6DeviceFilters();
  filters->Clear();
  for (const std::string& line : view_.Lines(kIpv6DeviceFilterList)) filters->AddFilter(line);
  filters->Sync();
}

void SettingsForm::cmdCancel_Click() {
  view_.Close();
}

}  // namespace sentrel
