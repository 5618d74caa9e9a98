#pragma once

#include <initializer_list>
#include <map>
#include <string>

#include "platform/file_dialog.h"
#include "platform/log_file.h"
#include "platform/message_box.h"
#include "settings/ip_functions.h"
#include "settings/settings.h"
#include "settings/settings_view.h"
#include "settings/version3_users_page.h"

namespace sentrel {

/// The settings dialog without its window. It works on what its controls hold: options and lists
/// change at OK only, so that traps go on being accepted by the old ones meanwhile. Made anew for
/// each opening. Used on the event loop only.
class SettingsForm {
 public:
  /// All must outlive this object.
  SettingsForm(Settings& settings, MessageBox& messageBox, FileDialog& fileDialog,
               const LogFile& logFile, Version3UsersPage& version3Users, SettingsView& view)
      : settings_(settings),
        messageBox_(messageBox),
        fileDialog_(fileDialog),
        logFile_(logFile),
        version3Users_(version3Users),
        view_(view) {}

  void Form_Load();

  void checkDeviceFilter_Click();
  /// Also puts "public" into the list, or empties it.
  void checkCommunity_Click();
  void checkLoggingActive_Click();

  /// Opens the page with this text in the box, to be added by the user: nothing else changes.
  void ProposeDeviceFilter(const std::string& text) {
    Propose(IsIPAddress(text) ? deviceFilterEntry_ : ipv6DeviceFilterEntry_, text);
  }
  void ShowVersion3Users() { view_.SelectTab(5); }
  void ProposeCommunity(const std::string& text) { Propose(communityEntry_, text); }

  void cmdAddDeviceFilter_Click();
  void cmdAddIpv6DeviceFilter_Click();
  void cmdAddCommunity_Click();
  /// Enter adds. Returns whether the key press, a character, is to be swallowed.
  bool NewDeviceFilter_KeyPress(char32_t key);
  bool NewIpv6DeviceFilter_KeyPress(char32_t key);
  bool NewCommunity_KeyPress(char32_t key);

  /// A line has been selected, by mouse or keyboard.
  void DeviceFilterList_Click();
  void Ipv6DeviceFilterList_Click();
  void CommunityList_Click();
  void cmdDeleteDeviceFilter_Click();
  void cmdDeleteIpv6DeviceFilter_Click();
  void cmdDeleteCommunity_Click();

  void cmdSelectLogFile_Click();
  /// The user has left the box: it shows the whole path.
  void LogFilename_LostFocus();
  /// The user has stopped typing: what stands in the way of the log is said beside the box.
  void LogFilename_Pause() { FindsNewLogProblem(); }

  /// Writes everything back and closes, or tells what is missing and changes nothing. An entry that
  /// was typed and not added, and a log file that cannot be written, are told of once: they may be
  /// meant so. The version 3 users come first, because they alone can fail to be kept: nothing else
  /// has changed then.
  void cmdOK_Click();
  void cmdCancel_Click();

 private:
  void LoadCommunities();
  void LoadDeviceFilters();
  void ShowDeviceFilterControls();
  /// Says what becomes of IPv6 senders while no filter is for them.
  void ShowIpv6Note();
  void ShowCommunityControls();
  void ShowLoggingControls();
  void Show(std::initializer_list<SettingsControl> controls, bool visible);
  /// A box from which Add puts lines into a list.
  struct Entry {
    /// Counts from 1.
    int tab;
    /// Shows the box while it is ticked.
    SettingsCheck group;
    SettingsText box;
    /// The text that was added, or told of, last.
    std::string settled = "";
  };
  void Propose(const Entry& entry, const std::string& text);
  /// Makes the next entry overwrite this one, with which nothing more is to be done.
  void Reenter(Entry& entry);
  /// Shows a text that was typed and not added, once.
  bool TellsOfNewEntry(Entry& entry);
  void RemoveSelected(SettingsList list, SettingsButton removeButton);
  void EnableRemoval(SettingsList list, SettingsButton removeButton);
  /// As it would be written. A name that the user has not changed is the stored one, whatever the
  /// box can show of it.
  std::string LogPath() const;
  bool LogIsUnchanged() const { return view_.Text(settings_controls::kLogFilename) == shownLog_; }
  /// Says beside the box what stands in the way of the log, or nothing. Returns whether that is
  /// something that has not been said of this file before.
  bool FindsNewLogProblem();
  void SaveOptions();
  void SaveCommunities();
  void SaveDeviceFilters();
  void SaveIpv6DeviceFilters();

  Settings& settings_;
  MessageBox& messageBox_;
  FileDialog& fileDialog_;
  const LogFile& logFile_;
  Version3UsersPage& version3Users_;
  SettingsView& view_;
  Entry deviceFilterEntry_{2, settings_controls::kCheckDeviceFilter,
                           settings_controls::kNewDeviceFilter};
  Entry ipv6DeviceFilterEntry_{2, settings_controls::kCheckDeviceFilter,
                               settings_controls::kNewIpv6DeviceFilter};
  Entry communityEntry_{3, settings_controls::kCheckCommunity, settings_controls::kNewCommunity};
  /// The log file that a problem was told of last.
  std::string problemFile_;
  /// What the box made of the stored name.
  std::string shownLog_;
  /// The stored communities, in order, by the lines that the list made of them.
  std::multimap<std::string, std::string> shownCommunities_;
};

}  // namespace sentrel
