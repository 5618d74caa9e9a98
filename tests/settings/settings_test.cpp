#include "settings/settings.h"

#include <gmock/gmock.h>

#include "fakes/fake_registry.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

class SettingsTest : public testing::Test {
 protected:
  void Store(const std::string& name, const std::string& text) {
    support_.SaveRegistryValue("Sentrel", "Settings", name, text, false);
  }
  std::string Stored(const std::string& name) {
    return support_.ReadRegistryValue("Sentrel", "Settings", name, "(none)", false);
  }
  void Record(Settings& settings) {
    settings.SetChanged([this](const std::string& name, const std::string& value) {
      changes_.push_back(name + "=" + value);
    });
  }

  FakeRegistry registry_;
  const RegistrySupport support_{registry_};
  std::vector<std::string> changes_;
};

TEST_F(SettingsTest, AFirstRunHasDefaultsAndLeavesTheStoreEmpty) {
  const Settings settings(registry_);
  EXPECT_FALSE(settings.Raw() || settings.DeviceFilterActive() || settings.LoggingEnabled() ||
               settings.Paused());
  EXPECT_EQ(settings.LogFilename(), "");
  EXPECT_EQ(settings.OIDCacheSize(), 1000);
  EXPECT_EQ(settings.DeviceFilters()->Count(), 0);
  EXPECT_EQ(settings.CommunityStrings()->Count(), 0);
  EXPECT_THAT(registry_.contents, IsEmpty());
  EXPECT_TRUE(registry_.AllClosed());
}

TEST_F(SettingsTest, EachOptionIsStoredWhenItChangesAndFoundByTheNextStart) {
  Settings settings(registry_);
  Record(settings);
  settings.SetRaw(true);
  settings.SetDeviceFilterActive(true);
  settings.SetPaused(true);
  settings.SetLoggingEnabled(true);
  std::string filename = "x.log";
  settings.SetLogFilename(filename);
  settings.SetOIDCacheSize(250);
  EXPECT_THAT(changes_, ElementsAre("Raw=True", "Device Filter Active=True", "Logging Enabled=True",
                                    "Log Filename=x.log", "OID Cache Size=250"));
  EXPECT_EQ(registry_.changes, 5);
  EXPECT_THAT(registry_.contents, ElementsAre(Pair(Pair(RegistryRoot::HKEY_LOCAL_MACHINE,
                                                        "SOFTWARE\\VARNHOLTNET\\SENTREL\\SETTINGS"),
                                                   SizeIs(5))));
  EXPECT_TRUE(registry_.AllClosed());

  const Settings next(registry_);
  EXPECT_TRUE(next.Raw() && next.DeviceFilterActive() && next.LoggingEnabled());
  EXPECT_FALSE(next.Paused());
  EXPECT_EQ(next.LogFilename(), "x.log");
  EXPECT_EQ(next.OIDCacheSize(), 250);
}

TEST_F(SettingsTest, ThePresentValueIsNotWrittenAgain) {
  Settings settings(registry_);
  Record(settings);
  settings.SetRaw(false);
  settings.SetDeviceFilterActive(false);
  settings.SetLoggingEnabled(false);
  settings.SetOIDCacheSize(1000);
  std::string blanks = "   ";
  settings.SetLogFilename(blanks);
  EXPECT_THAT(changes_, IsEmpty());
  EXPECT_EQ(registry_.changes, 0);
}

TEST_F(SettingsTest, LogFilenameIsTrimmedInTheCallersVariableToo) {
  Settings settings(registry_);
  for (const auto& [text, trimmed] :
       {std::pair("  x.log  ", "x.log"), {"X.log", "X.log"}, {"  ", ""}}) {
    std::string filename = text;
    settings.SetLogFilename(filename);
    EXPECT_EQ(filename, trimmed);
    EXPECT_EQ(settings.LogFilename(), trimmed);
    EXPECT_EQ(Stored("Log Filename"), trimmed);
  }
}

TEST_F(SettingsTest, ATextThatDoesNotConvertIsTheDefault) {
  Store("Raw", "maybe");
  Store("Logging Enabled", "");
  Store("Device Filter Active", "1");
  Store("OID Cache Size", "99999999999");
  const Settings settings(registry_);
  EXPECT_FALSE(settings.Raw() || settings.LoggingEnabled());
  EXPECT_TRUE(settings.DeviceFilterActive());
  EXPECT_EQ(settings.OIDCacheSize(), 1000);
}

TEST_F(SettingsTest, AWriteThatFailsKeepsTheValueForThisRunAndStillTellsOfIt) {
  Settings settings(registry_);
  Record(settings);
  registry_.readOnly = true;
  settings.SetRaw(true);
  EXPECT_TRUE(settings.Raw());
  EXPECT_THAT(changes_, ElementsAre("Raw=True"));
  EXPECT_FALSE(Settings(registry_).Raw());
}

TEST_F(SettingsTest, AListThatCouldNotBeReadRefusesNoTrap) {
  Store("Device Filter Active", "True");
  support_.SaveRegistryValue("Sentrel", "Device Filters", 1, "10.0.1.1", false);
  registry_.unreadable = {"SOFTWARE\\VARNHOLTNET\\SENTREL\\DEVICE FILTERS"};
  Settings settings(registry_);
  EXPECT_FALSE(settings.DeviceFilterActive());
  settings.DeviceFilters()->Sync();
  registry_.unreadable.clear();
  const Settings next(registry_);
  EXPECT_TRUE(next.DeviceFilterActive());
  EXPECT_EQ(next.DeviceFilters()->Count(), 1);
}

TEST_F(SettingsTest, RefreshReplacesAllButPausedAndTellsOfNothing) {
  Settings settings(registry_);
  Record(settings);
  settings.SetPaused(true);
  Store("Raw", "True");
  support_.SaveRegistryValue("Sentrel", "Device Filters", 1, "10.0.1.1", false);
  support_.SaveRegistryValue("Sentrel", "Community Strings", 1, "a", false);
  const auto filters = settings.DeviceFilters();
  settings.Refresh();
  EXPECT_TRUE(settings.Raw() && settings.Paused());
  EXPECT_EQ(filters->Count(), 1);
  EXPECT_EQ(settings.CommunityStrings()->Count(), 1);
  EXPECT_THAT(changes_, IsEmpty());
}

TEST_F(SettingsTest, OptionsAreReadAsTextUpToTheFirstNulFromWholeKeyPathsAndTheUsersTreeToo) {
  Settings settings(registry_);
  EXPECT_EQ(settings.RetrieveOption("Never Written", false), "False");
  settings.SaveOption("Other", 12);
  EXPECT_EQ(settings.RetrieveOption("other", ""), "12");
  support_.SaveRegistryValue("Benchwell", "Help", "Directory", std::string("/docs\0junk", 10),
                             true);
  EXPECT_EQ(
      support_.ReadRegistryKeyValue(RegistryRoot::HKEY_CURRENT_USER,
                                    "Software\\VarnholtNet\\Benchwell\\Help", "Directory", ""),
      "/docs");
  EXPECT_EQ(support_.ReadRegistryValue("Benchwell", "Help", "Directory", true, false), "True");
}

TEST_F(SettingsTest, DeleteWorksInTheMachinesTreeOnly) {
  for (const bool user : {true, false}) support_.SaveRegistryValue("A", "S", "x", "1", user);
  support_.DeleteRegistryValue("A", "S", "x");
  support_.DeleteRegistryValue("A", "S", "x");
  support_.DeleteRegistryValue("A", "T", "x");
  EXPECT_EQ(support_.ReadRegistryValue("A", "S", "x", "", true), "1");
  EXPECT_EQ(support_.ReadRegistryValue("A", "S", "x", "", false), "");
  EXPECT_TRUE(registry_.AllClosed());
}

TEST(ReadBoolean, TakesWordsAndNumbers) {
  for (const char* text : {"True", "TRUE", "true", " True ", "1", "-1", "250"})
    EXPECT_EQ(ReadBoolean(text), true) << text;
  for (const char* text : {"False", "fAlSe", "0", "-0", " 00 "})
    EXPECT_EQ(ReadBoolean(text), false) << text;
  for (const char* text : {"", " ", "yes", "Tru", "Truee", "1x", "0.5", "99999999999"})
    EXPECT_EQ(ReadBoolean(text), std::nullopt) << text;
}

TEST(ReadLong, TakesWholeNumbersOf32Bits) {
  const std::pair<const char*, std::int32_t> numbers[] = {
      {"250", 250}, {" 0250 ", 250}, {"+7", 7}, {"-5", -5}, {"2147483647", INT32_MAX}};
  for (const auto& [text, number] : numbers) EXPECT_EQ(ReadLong(text), number) << text;
  for (const char* text : {"", "+", "-", "+-5", "1e3", "0x10", "12 3", "2147483648", "1.5", "True"})
    EXPECT_EQ(ReadLong(text), std::nullopt) << text;
}

}  // namespace
}  // namespace sentrel
