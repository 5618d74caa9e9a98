#include <fmt/format.h>
#include <gmock/gmock.h>

#include "common/text.h"
#include "fakes/fake_registry.h"
#include "settings/community_strings.h"
#include "settings/device_filters.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FilterListsTest : public testing::Test {
 protected:
  void Store(int index, const std::string& text) {
    support_.SaveRegistryValue("Sentrel", "Device Filters", index, text, false);
  }
  std::string Stored(int index) {
    return support_.ReadRegistryValue("Sentrel", "Device Filters", index, "(none)", false);
  }

  FakeRegistry registry_;
  RegistrySupport support_{registry_};
  DeviceFilters filters_{support_};
  CommunityStrings strings_{support_};
};

TEST_F(FilterListsTest, AddsOnlyWhatIsUnderstood) {
  for (const char* text : {"", "   ", "10.0.1", "router"}) {
    EXPECT_EQ(filters_.AddFilter(text), nullptr) << text;
    EXPECT_FALSE(filters_.ValidFilter(text)) << text;
  }
  EXPECT_THAT(filters_.Keys(), IsEmpty());
  EXPECT_TRUE(filters_.ValidFilter(" 10.0.1.0 \\ 24 "));
  EXPECT_EQ(filters_.Count(), 0);
}

TEST_F(FilterListsTest, KeepsOneFilterForEachNormalForm) {
  const auto first = filters_.AddFilter("10.0.1.0/24");
  EXPECT_EQ(filters_.AddFilter("10.0.1.5/255.255.255.0"), first);
  EXPECT_EQ(filters_.AddFilter("Subnet            : 10.0.1.0/255.255.255.0"), first);
  filters_.AddFilter("10.0.1.1");
  filters_.AddFilter("010.000.001.001");
  filters_.AddFilter(" 10.0.0.1 - 10.0.0.9 ");
  EXPECT_THAT(filters_.Keys(), ElementsAre("10.0.1.0/255.255.255.0", "10.0.1.1", "010.000.001.001",
                                           "10.0.0.1-10.0.0.9"));
}

TEST_F(FilterListsTest, FindsAndRemovesByExactKey) {
  filters_.AddFilter("10.0.1.1");
  const auto second = filters_.AddFilter("10.0.1.2");
  filters_.AddFilter("10.0.1.3");
  EXPECT_EQ(filters_.Item("10.0.1.9"), nullptr);
  EXPECT_FALSE(filters_.Exists("10.0.1.1 "));
  filters_.Remove("10.0.1.9");
  filters_.Remove("10.0.1.1");
  EXPECT_THAT(filters_.Keys(), ElementsAre("10.0.1.2", "10.0.1.3"));
  EXPECT_EQ(filters_.Item("10.0.1.2"), second);
  EXPECT_EQ(filters_.Item("10.0.1.3")->Filter(), "10.0.1.3");
  EXPECT_EQ(filters_.Count(), 2);
  filters_.Clear();
  EXPECT_FALSE(filters_.Exists("10.0.1.2"));
}

TEST_F(FilterListsTest, TellsWhetherAnyFilterHoldsTheAddress) {
  EXPECT_FALSE(filters_.AddressInFilters("10.0.1.1"));
  filters_.AddFilter("192.0.2.7");
  filters_.AddFilter("10.0.1.0/24");
  for (const char* address : {"10.0.1.1", "192.0.2.7", "192.0.2.007"})
    EXPECT_TRUE(filters_.AddressInFilters(address)) << address;
  for (const char* address : {"10.0.2.1", "10.0.1.x", "10.0.1.1x", "", "::1", " 10.0.1.1"})
    EXPECT_FALSE(filters_.AddressInFilters(address)) << address;
}

TEST_F(FilterListsTest, LoadsInIndexOrderWithoutHolesDuplicatesAndNonsense) {
  Store(200, "10.0.1.200");
  Store(1, "10.0.1.1");
  Store(3, "nonsense");
  Store(4, "10.0.1.1");
  Store(5, "10.0.1.77/24");
  Store(6, "");
  Store(201, "10.0.1.201");
  Store(0, "10.0.1.0");
  filters_.AddFilter("172.16.0.1");
  filters_.Refresh();
  EXPECT_THAT(filters_.Keys(), ElementsAre("10.0.1.1", "10.0.1.0/255.255.255.0", "10.0.1.200"));
  filters_.AddFilter("10.0.1.9");
  filters_.Sync();
  EXPECT_EQ(Stored(1), "10.0.1.1");
  EXPECT_EQ(Stored(2), "10.0.1.0/255.255.255.0");
  EXPECT_EQ(Stored(3), "10.0.1.200");
  EXPECT_EQ(Stored(4), "10.0.1.9");
  for (int index = 5; index <= 200; ++index) EXPECT_EQ(Stored(index), "(none)");
}

TEST_F(FilterListsTest, KeepsTheFirstTwoHundred) {
  for (int i = 1; i <= 201; ++i) filters_.AddFilter(fmt::format("10.0.1.{}", i));
  const int before = registry_.changes;
  filters_.Sync();
  EXPECT_EQ(registry_.changes, before + 1);
  EXPECT_EQ(Stored(200), "10.0.1.200");
  EXPECT_EQ(Stored(201), "(none)");
  EXPECT_EQ(filters_.Count(), 201);
  filters_.Refresh();
  EXPECT_EQ(filters_.Count(), 200);
  EXPECT_TRUE(registry_.AllClosed());
}

TEST_F(FilterListsTest, AnUnchangedListIsNotWrittenHoweverUntidy) {
  for (const char* stored :
       {"10.0.1.77/24", "10.0.1.77/24 nonsense 10.0.1.1", "10.0.1.1 10.0.1.1", "10.0.1.1  x"}) {
    SCOPED_TRACE(stored);
    registry_.contents.clear();
    int index = 0;
    for (const std::string_view text : Split(stored, " ")) Store(++index, std::string(text));
    filters_.Refresh();
    const int before = registry_.changes;
    filters_.Sync();
    EXPECT_EQ(registry_.changes, before);
    Store(7, "192.0.2.1");
    filters_.Sync();
    EXPECT_EQ(Stored(7), "192.0.2.1");
    filters_.AddFilter("10.9.9.9");
    filters_.Sync();
    EXPECT_EQ(Stored(7), "(none)") << "a changed list is written whole";
  }
}

TEST_F(FilterListsTest, AListThatWasNotKeptIsWrittenTheNextTime) {
  Store(1, "10.0.1.1");
  filters_.Refresh();
  filters_.AddFilter("10.0.1.2");
  registry_.readOnly = true;
  filters_.Sync();
  registry_.readOnly = false;
  filters_.Sync();
  EXPECT_EQ(Stored(2), "10.0.1.2");
}

TEST_F(FilterListsTest, CommunityStringsAreTrimmedAndComparedExactly) {
  support_.SaveRegistryValue("Sentrel", "Community Strings", 7, " stored ", false);
  strings_.Add("old");
  strings_.Refresh();
  for (const char* text : {"  public  ", "public", "Public", "with blank", "\ttab"})
    strings_.Add(text);
  EXPECT_THAT(strings_.CStrings(),
              ElementsAre("stored", "public", "Public", "with blank", "\ttab"));
  EXPECT_TRUE(strings_.Exists("public"));
  for (const char* text : {"public ", "PUBLIC", "", "tab"})
    EXPECT_FALSE(strings_.Exists(text)) << text;
  for (int i = 0; i < 40000; ++i) strings_.Add(std::to_string(i));
  EXPECT_EQ(strings_.Count(), 32767) << "it stays positive however long the list";
}

}  // namespace
}  // namespace sentrel
