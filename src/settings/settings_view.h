#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace sentrel {

/// A control of the settings dialog, known by its name. What can be asked of it depends on its
/// kind.
struct SettingsControl {
  const char* name;
};
struct SettingsCheck : SettingsControl {};
struct SettingsButton : SettingsControl {};
/// An entry box or a label.
struct SettingsText : SettingsControl {};
struct SettingsList : SettingsControl {};

namespace settings_controls {

inline constexpr SettingsCheck kCheckDecode{"checkDecode"};
inline constexpr SettingsCheck kCheckRaw{"checkRaw"};

inline constexpr SettingsCheck kCheckDeviceFilter{"checkDeviceFilter"};
inline constexpr SettingsText kAddLabel{"AddLabel"};
inline constexpr SettingsText kNewDeviceFilter{"NewDeviceFilter"};
inline constexpr SettingsButton kCmdAddDeviceFilter{"cmdAddDeviceFilter"};
inline constexpr SettingsText kExamplesLabel{"ExamplesLabel"};
inline constexpr SettingsText kExampleList{"ExampleList"};
inline constexpr SettingsText kExampleNames{"ExampleNames"};
inline constexpr SettingsList kDeviceFilterList{"DeviceFilterList"};
inline constexpr SettingsButton kCmdDeleteDeviceFilter{"cmdDeleteDeviceFilter"};
inline constexpr SettingsText kAddIpv6Label{"AddIpv6Label"};
inline constexpr SettingsText kNewIpv6DeviceFilter{"NewIpv6DeviceFilter"};
inline constexpr SettingsButton kCmdAddIpv6DeviceFilter{"cmdAddIpv6DeviceFilter"};
inline constexpr SettingsList kIpv6DeviceFilterList{"Ipv6DeviceFilterList"};
inline constexpr SettingsButton kCmdDeleteIpv6DeviceFilter{"cmdDeleteIpv6DeviceFilter"};
inline constexpr SettingsText kIpv6Note{"Ipv6Note"};

inline constexpr SettingsCheck kCheckCommunity{"checkCommunity"};
inline constexpr SettingsText kLabel1{"Label1"};
inline constexpr SettingsText kNewCommunityLabel{"NewCommunityLabel"};
inline constexpr SettingsText kNewCommunity{"NewCommunity"};
inline constexpr SettingsButton kCmdAddCommunity{"cmdAddCommunity"};
inline constexpr SettingsList kCommunityList{"CommunityList"};
inline constexpr SettingsButton kCmdDeleteCommunity{"cmdDeleteCommunity"};

inline constexpr SettingsCheck kCheckLoggingActive{"checkLoggingActive"};
inline constexpr SettingsText kLogLabel{"LogLabel"};
inline constexpr SettingsText kLogFilename{"LogFilename"};
inline constexpr SettingsText kLogProblem{"LogProblem"};
inline constexpr SettingsButton kCmdSelectLogFile{"cmdSelectLogFile"};

inline constexpr SettingsButton kCmdOK{"cmdOK"};
inline constexpr SettingsButton kCmdCancel{"cmdCancel"};

}  // namespace settings_controls

/// The controls of the settings dialog, which hold all that is edited. Texts are UTF-8. Called on
/// the event loop; throws nothing.
class SettingsView {
 public:
  virtual ~SettingsView() = default;
  /// The number by which the help key finds the dialog's page.
  virtual void SetHelpContext(int number) = 0;
  /// Counts from 1.
  virtual void SelectTab(int tab) = 0;
  virtual void Close() = 0;

  virtual void SetVisible(SettingsControl control, bool visible) = 0;
  virtual void SetEnabled(SettingsControl control, bool enabled) = 0;
  /// Without effect on a control that cannot be seen.
  virtual void SetFocus(SettingsControl control) = 0;

  virtual bool Checked(SettingsCheck check) const = 0;
  /// A state that differs from the present one is a click like the user's.
  virtual void SetChecked(SettingsCheck check, bool checked) = 0;

  virtual std::string Text(SettingsText box) const = 0;
  /// CR LF between lines.
  virtual void SetText(SettingsText box, const std::string& text) = 0;
  /// Selects the whole text.
  virtual void SelectText(SettingsText box) = 0;

  virtual std::vector<std::string> Lines(SettingsList list) const = 0;
  /// At the end. The selection stays.
  virtual void AddLine(SettingsList list, const std::string& line) = 0;
  /// No line is selected afterwards.
  virtual void RemoveLine(SettingsList list, std::size_t index) = 0;
  virtual void ClearLines(SettingsList list) = 0;
  /// Counts from 0; nothing if no line is selected.
  virtual std::optional<std::size_t> SelectedLine(SettingsList list) const = 0;
};

}  // namespace sentrel
