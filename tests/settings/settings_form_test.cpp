#include "settings/settings_form.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "fake_settings_view.h"
#include "fake_version3_users_view.h"
#include "fakes/fake_console.h"
#include "fakes/fake_file_dialog.h"
#include "fakes/fake_registry.h"
#include "fakes/fake_version3_users.h"

namespace sentrel {
namespace {

using namespace settings_controls;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

struct SettingsFormTest : testing::Test {
  SettingsFormTest() {
    view.onClick = {{"checkDeviceFilter", [this] { form.checkDeviceFilter_Click(); }},
                    {"checkCommunity", [this] { form.checkCommunity_Click(); }},
                    {"checkLoggingActive", [this] { form.checkLoggingActive_Click(); }}};
  }
  void AddCommunity(const std::string& text) {
    view.SetText(kNewCommunity, text);
    EXPECT_TRUE(form.NewCommunity_KeyPress(U'\r'));
  }
  void AddDeviceFilter(const std::string& text) {
    view.SetText(kNewDeviceFilter, text);
    EXPECT_TRUE(form.NewDeviceFilter_KeyPress(U'\r'));
  }
  /// The message that a step shows, with an exclamation icon and the default title; "" if none.
  template <typename Step>
  std::string MessageOf(Step&& step) {
    log.calls.clear();
    step();
    if (log.calls.empty()) return "";
    EXPECT_EQ(box.icon, MessageIcon::Exclamation);
    EXPECT_EQ(box.title, "Sentrel");
    return box.text;
  }
  std::vector<std::string> NextStart() const {
    FakeRegistry copy = registry;
    return Settings(copy).CommunityStrings()->CStrings();
  }

  FakeRegistry registry;
  Settings settings{registry};
  CallLog log;
  FakeMessageBox box{log};
  FakeFileDialog files;
  FakeSettingsView view;
  FakeLogFile logFile;
  FakeVersion3Users users;
  FakeVersion3UsersView usersView;
  Version3UsersPage usersPage{users, box, usersView};
  SettingsForm form{settings, box, files, logFile, usersPage, view};
};

TEST_F(SettingsFormTest, LoadsWhatIsSetAndOffersNoRemovalYet) {
  settings.SetRaw(true);
  settings.SetDeviceFilterActive(true);
  settings.SetLoggingEnabled(true);
  std::string filename = "x.log";
  settings.SetLogFilename(filename);
  settings.DeviceFilters()->AddFilter("10.0.1.0/24");
  settings.CommunityStrings()->Add("b");
  settings.CommunityStrings()->Add("a");
  form.Form_Load();
  EXPECT_THAT(view.checked,
              ElementsAre("checkCommunity", "checkDeviceFilter", "checkLoggingActive", "checkRaw"));
  EXPECT_THAT(view.hidden, IsEmpty());
  EXPECT_EQ(view.texts["LogFilename"], "x.log");
  EXPECT_THAT(view.lines["DeviceFilterList"],
              ElementsAre("Subnet            : 10.0.1.0/255.255.255.0"));
  EXPECT_THAT(view.lines["CommunityList"], ElementsAre("b", "a")) << "without a \"public\"";
  EXPECT_THAT(view.enabled, IsEmpty());
}

TEST_F(SettingsFormTest, TickingShowsTheDeviceFiltersAndTheListStays) {
  settings.DeviceFilters()->AddFilter("10.0.1.23");
  form.Form_Load();
  view.SetChecked(kCheckDeviceFilter, true);
  EXPECT_FALSE(view.hidden.contains("DeviceFilterList"));
  EXPECT_EQ(view.focus, "NewDeviceFilter");
  view.focus.clear();
  view.SetChecked(kCheckDeviceFilter, false);
  EXPECT_THAT(view.hidden, IsSupersetOf({"DeviceFilterList", "NewDeviceFilter"}));
  EXPECT_EQ(view.focus, "");
  form.cmdOK_Click();
  EXPECT_FALSE(settings.DeviceFilterActive());
  EXPECT_THAT(settings.DeviceFilters()->Keys(), ElementsAre("10.0.1.23"));
}

TEST_F(SettingsFormTest, TickingCommunityFilteringBeginsWithPublicAndUntickingForgetsAll) {
  settings.CommunityStrings()->Add("private");
  settings.CommunityStrings()->Sync();
  form.Form_Load();
  view.SetChecked(kCheckCommunity, false);
  EXPECT_THAT(view.lines["CommunityList"], IsEmpty());
  EXPECT_TRUE(view.hidden.contains("CommunityList"));
  view.SetChecked(kCheckCommunity, true);
  EXPECT_THAT(view.lines["CommunityList"], ElementsAre("public"));
  form.cmdCancel_Click();
  EXPECT_TRUE(view.closed);
  EXPECT_THAT(settings.CommunityStrings()->CStrings(), ElementsAre("private"));
  EXPECT_THAT(NextStart(), ElementsAre("private"));
}

TEST_F(SettingsFormTest, DeviceFiltersAreAddedAsDescriptionsAndOnceToTheList) {
  settings.DeviceFilters()->AddFilter("10.9.9.9");
  form.Form_Load();
  view.ClearLines(kDeviceFilterList);
  view.SetChecked(kCheckDeviceFilter, true);
  for (const char* text : {"  10.0.1.0/24 ", "10.0.1.1 - 10.0.1.255", "10.0.1.0\\24", "10.0.1.23"})
    AddDeviceFilter(text);
  EXPECT_THAT(
      view.lines["DeviceFilterList"],
      ElementsAre("Subnet            : 10.0.1.0/255.255.255.0",
                  "Address Range     : 10.0.1.1-10.0.1.255",
                  "Subnet            : 10.0.1.0/255.255.255.0", "Single IP Address : 10.0.1.23"));
  EXPECT_EQ(view.focus, "NewDeviceFilter");
  EXPECT_EQ(view.selectedText, "NewDeviceFilter");
  EXPECT_THAT(settings.DeviceFilters()->Keys(), ElementsAre("10.9.9.9")) << "until OK";
  form.cmdOK_Click();
  EXPECT_THAT(settings.DeviceFilters()->Keys(),
              ElementsAre("10.0.1.0/255.255.255.0", "10.0.1.1-10.0.1.255", "10.0.1.23"));
}

TEST_F(SettingsFormTest, Ipv6FiltersHaveAListAndANoteOfTheirOwn) {
  const auto add = [&](const char* text) {
    view.SetText(kNewIpv6DeviceFilter, text);
    return MessageOf([&] { EXPECT_TRUE(form.NewIpv6DeviceFilter_KeyPress(U'\r')); });
  };
  settings.Ipv6DeviceFilters()->AddFilter("::1");
  form.Form_Load();
  view.SetChecked(kCheckDeviceFilter, true);
  EXPECT_EQ(view.texts["Ipv6Note"], "");
  view.selectedLine["Ipv6DeviceFilterList"] = 0;
  form.cmdDeleteIpv6DeviceFilter_Click();
  EXPECT_THAT(view.texts["Ipv6Note"], testing::StartsWith("No IPv6 filter"));
  EXPECT_EQ(add(" 2001:DB8::1/32 "), "");
  EXPECT_EQ(view.texts["Ipv6Note"], "");
  EXPECT_EQ(view.focus, "NewIpv6DeviceFilter");
  EXPECT_EQ(view.selectedText, "NewIpv6DeviceFilter");
  EXPECT_THAT(add("2001::/129"), testing::StartsWith("Please enter a valid IPv6 Filter first."));
  EXPECT_THAT(add("10.0.0.1"), testing::StartsWith("This is an IPv4 Filter"));
  view.SetText(kNewIpv6DeviceFilter, "");
  EXPECT_THAT(MessageOf([&] { form.cmdOK_Click(); }),
              testing::StartsWith("You have enabled Device Filtering"))
      << "the check counts the first list alone";
  AddDeviceFilter("10.0.1.23");
  EXPECT_THAT(settings.Ipv6DeviceFilters()->Keys(), ElementsAre("::1")) << "until OK";
  form.cmdOK_Click();
  FakeRegistry copy = registry;
  EXPECT_THAT(Settings(copy).Ipv6DeviceFilters()->Keys(), ElementsAre("2001:db8::/32"));
  registry.unreachable = true;
  settings.Refresh();
  view.ClearLines(kIpv6DeviceFilterList);
  form.Form_Load();
  EXPECT_THAT(view.texts["Ipv6Note"], testing::HasSubstr("could not be read"));
}

TEST_F(SettingsFormTest, UsersThatCannotBeKeptChangeNothingElse) {
  users.unwritable = "The disk is full.";
  form.Form_Load();
  view.SetChecked(kCheckRaw, true);
  usersView.clipboard = "createUser bob SHA password1";
  usersPage.Paste();
  EXPECT_EQ(MessageOf([&] { form.cmdOK_Click(); }), "The disk is full.");
  EXPECT_EQ(view.tab, 5);
  EXPECT_FALSE(view.closed || settings.Raw());
  EXPECT_EQ(registry.changes, 0);
  users.unwritable = "";
  form.cmdOK_Click();
  EXPECT_TRUE(view.closed && settings.Raw());
  EXPECT_EQ(users.replacements, 1);
}

TEST_F(SettingsFormTest, CommunitiesAreTrimmedInTheBoxAndOnceInTheList) {
  form.Form_Load();
  view.SetChecked(kCheckCommunity, true);
  for (const char* text : {" two words  ", "two words", "Public"}) AddCommunity(text);
  EXPECT_THAT(view.lines["CommunityList"],
              ElementsAre("public", "two words", "two words", "Public"));
  EXPECT_EQ(view.focus, "NewCommunity");
  EXPECT_EQ(view.selectedText, "NewCommunity");
  EXPECT_EQ(MessageOf([&] { AddCommunity("   "); }),
            "Please enter an SNMP Community string first.");
  EXPECT_EQ(view.texts["NewCommunity"], "");
  form.cmdOK_Click();
  EXPECT_THAT(NextStart(), ElementsAre("public", "two words", "Public"));
}

TEST_F(SettingsFormTest, TheLogFileIsChosenInTheFileDialog) {
  form.Form_Load();
  view.SetText(kLogFilename, "old.log");
  form.cmdSelectLogFile_Click();
  EXPECT_EQ(view.texts["LogFilename"], "old.log") << "the user cancelled";
  files.choice = "/var/log/traps";
  form.cmdSelectLogFile_Click();
  EXPECT_EQ(view.texts["LogFilename"], "/var/log/traps");
  const SaveFileRequest& request = files.requests.front();
  EXPECT_EQ(request.title, "Trap Logging File ...");
  EXPECT_EQ(request.filter, "All Files (*.*)|*.*");
  EXPECT_EQ(request.fileName, "old.log");
  EXPECT_FALSE(request.promptBeforeOverwrite || request.roomFor) << "a log is appended to";
}

TEST_F(SettingsFormTest, OKWithoutADeviceFilterChangesNothingAndWithoutACommunityTurnsThatOff) {
  settings.CommunityStrings()->Add("a");
  form.Form_Load();
  view.SetChecked(kCheckRaw, true);
  view.SetChecked(kCheckDeviceFilter, true);
  EXPECT_EQ(MessageOf([&] { form.cmdOK_Click(); }),
            "You have enabled Device Filtering, but have not added any Device Filters.\r\n\r\n"
            "Please add at least one Device Filter or disable Device Filtering.");
  EXPECT_EQ(view.tab, 2);
  EXPECT_EQ(view.focus, "NewDeviceFilter");
  EXPECT_FALSE(view.closed);
  EXPECT_FALSE(settings.Raw());
  EXPECT_EQ(registry.changes, 0);
  view.SetChecked(kCheckDeviceFilter, false);
  view.ClearLines(kCommunityList);
  EXPECT_EQ(MessageOf([&] { form.cmdOK_Click(); }), "");
  EXPECT_TRUE(view.closed && settings.Raw());
  EXPECT_THAT(NextStart(), IsEmpty());
}

TEST_F(SettingsFormTest, WhatWasTypedAndNotAddedIsShownOnceBeforeOKCloses) {
  settings.DeviceFilters()->AddFilter("10.9.9.9");
  const std::tuple<SettingsCheck, SettingsText, int> boxes[] = {
      {kCheckDeviceFilter, kNewDeviceFilter, 2},
      {kCheckDeviceFilter, kNewIpv6DeviceFilter, 2},
      {kCheckCommunity, kNewCommunity, 3}};
  for (const auto& [check, entry, tab] : boxes) {
    form.Form_Load();
    for (const SettingsText other : {kNewDeviceFilter, kNewIpv6DeviceFilter, kNewCommunity})
      view.SetText(other, "");
    view.SetText(entry, " 10.0.0.1 ");
    view.SetChecked(check, true);
    view.closed = false;
    view.focus = "";
    EXPECT_EQ(MessageOf([&] { form.cmdOK_Click(); }),
              "\"10.0.0.1\" has not been added.\r\n\r\n"
              "Press Add to add it, or OK once more to go on without it.");
    EXPECT_FALSE(view.closed);
    EXPECT_EQ(view.tab, tab);
    EXPECT_EQ(view.focus, entry.name);
    EXPECT_EQ(MessageOf([&] { form.cmdOK_Click(); }), "");
    EXPECT_TRUE(view.closed);
  }
  view.SetText(kNewCommunity, "other");
  view.SetChecked(kCheckCommunity, false);
  EXPECT_EQ(MessageOf([&] { form.cmdOK_Click(); }), "") << "a hidden box holds nobody up";
}

TEST_F(SettingsFormTest, OKThatChangesNothingLeavesAloneWhatOthersHaveWrittenMeanwhile) {
  const RegistrySupport others(registry);
  const auto store = [&](int index) {
    others.SaveRegistryValue("Sentrel", "Device Filters", index,
                             "10.0." + std::to_string(index) + ".0/24", false);
    others.SaveRegistryValue("Sentrel", "Community Strings", index, std::to_string(index), false);
  };
  store(1);
  settings.Refresh();
  for (const int index : {2, 3}) store(index);
  const int before = registry.changes;
  form.Form_Load();
  form.cmdOK_Click();
  EXPECT_EQ(registry.changes, before);
  EXPECT_THAT(NextStart(), ElementsAre("1", "2", "3"));
  form.Form_Load();
  AddCommunity("mine");
  form.cmdOK_Click();
  EXPECT_THAT(NextStart(), ElementsAre("1", "mine")) << "what has changed is written whole";
}

TEST_F(SettingsFormTest, TheLogFilenameIsKeptWithLoggingOnOnly) {
  std::string filename = "old.log";
  settings.SetLogFilename(filename);
  form.Form_Load();
  const auto pressOK = [&](bool logging, const char* text) {
    view.SetChecked(kCheckLoggingActive, logging);
    view.SetText(kLogFilename, text);
    form.cmdOK_Click();
    EXPECT_EQ(settings.LoggingEnabled(), logging);
    return settings.LogFilename();
  };
  EXPECT_EQ(pressOK(false, "new.log"), "old.log");
  EXPECT_EQ(pressOK(true, " new.log "), "new.log");
  EXPECT_EQ(pressOK(true, ""), "");
}

TEST_F(SettingsFormTest, WhatTheControlsCannotShowStaysAsStoredUnlessTheUserChangesIt) {
  // A box and a list show one sign for what is no UTF-8.
  view.shown = [](std::string text) {
    return std::replace(text.begin(), text.end(), '\xE4', '?'), text;
  };
  settings.CommunityStrings()->Add("a\xE4");
  settings.CommunityStrings()->Add("b");
  settings.CommunityStrings()->Sync();
  settings.SetLoggingEnabled(true);
  for (const std::string stored : {"~/tilde.log", "/x/\xE4.log"}) {
    std::string filename = stored;
    settings.SetLogFilename(filename);
    const int before = registry.changes;
    form.Form_Load();
    form.LogFilename_LostFocus();
    form.cmdOK_Click();
    EXPECT_EQ(settings.LogFilename(), stored);
    EXPECT_EQ(registry.changes, before);
  }
  form.Form_Load();
  AddCommunity("mine");
  form.cmdOK_Click();
  EXPECT_THAT(NextStart(), ElementsAre("a\xE4", "b", "mine"));
}

TEST_F(SettingsFormTest, WhatStandsInTheWayOfTheLogIsSaidBesideTheBoxOnce) {
  logFile.obstacles = {{"/home/ann/logs", "This is a folder."}, {"/no/x", "There is no folder."}};
  form.Form_Load();
  view.SetChecked(kCheckLoggingActive, true);
  view.SetText(kLogFilename, " ~/logs ");
  form.LogFilename_LostFocus();
  EXPECT_EQ(view.texts["LogFilename"], "/home/ann/logs");
  EXPECT_EQ(MessageOf([&] { form.cmdOK_Click(); }), "") << "it takes no message box";
  EXPECT_EQ(view.texts["LogProblem"], "This is a folder.");
  EXPECT_EQ(view.tab, 4);
  EXPECT_EQ(view.focus, "LogFilename");
  EXPECT_FALSE(view.closed || settings.LoggingEnabled());
  view.SetText(kLogFilename, "~/logs/x");
  form.LogFilename_Pause();
  EXPECT_EQ(view.texts["LogProblem"], "");
  files.choice = "/no/x";
  form.cmdSelectLogFile_Click();
  EXPECT_EQ(view.texts["LogProblem"], "There is no folder.");
  form.cmdOK_Click();
  EXPECT_TRUE(view.closed) << "the user knows, and may have reasons";
  EXPECT_EQ(settings.LogFilename(), "/no/x");
}

TEST_F(SettingsFormTest, ALogThatCannotBeWrittenHoldsNobodyUp) {
  std::string filename = "/no/x";
  settings.SetLogFilename(filename);
  logFile.obstacles = {{"/no/x", "There is no folder."}};
  for (const bool logging : {false, true}) {
    settings.SetLoggingEnabled(logging);
    view.closed = false;
    form.Form_Load();
    EXPECT_EQ(view.texts["LogProblem"], logging ? "There is no folder." : "");
    form.cmdOK_Click();
    EXPECT_TRUE(view.closed);
  }
}

}  // namespace
}  // namespace sentrel
