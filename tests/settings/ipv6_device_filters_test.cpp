#include "settings/ipv6_device_filters.h"

#include <gmock/gmock.h>

#include "common/text.h"
#include "fakes/fake_registry.h"
#include "settings/settings.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Ipv6DeviceFilterTest, HasANormalFormOrIsRefused) {
  const std::pair<const char*, const char*> texts[] = {
      {" 2001:DB8:0:0::0001 ", "2001:db8::1"},
      {"2001:db8:0:1:0:0:0:1", "2001:db8:0:1::1"},
      {"2001:db8:ffff::1/33", "2001:db8:8000::/33"},
      {"2001:db8::ff\\128", "2001:db8::ff"},
      {"::/0", "::/0"},
      {"::1 - ::FF", "::1-::ff"},
      {"fe80::1%eth0", "fe80::1%eth0"},
      {"fe80::1%br-lan/64", "fe80::%br-lan/64"},
      {"fe80::1%br-lan - fe80::ff%br-lan", "fe80::1%br-lan-fe80::ff%br-lan"},
      // IPv4, its clothes, and what no sender has
      {"10.0.0.1", ""},
      {"::ffff:10.0.0.1", ""},
      {"::ffff:0:0/96", ""},
      {"2001:db8::1%eth0", ""},
      {"fe80::%eth0/9", ""},
      {"fe80::1%eth0 - fe80::2%eth1", ""},
      {"fe80::1%", ""},
      {"fe80::1%aNameThatIsTooLong", ""},
      {"::2 - ::1", ""},
      {"::1/129", ""},
      {"::1/", ""},
      {"::1/64/64", ""},
      {"1::2::3", ""},
      {"-", ""},
      {"", ""},
  };
  for (const auto& [text, normal] : texts) {
    const auto filter = Ipv6DeviceFilter::Of(text);
    EXPECT_EQ(filter ? filter->Text() : "", normal) << text;
    if (filter) {
      EXPECT_EQ(Ipv6DeviceFilter::Of(normal)->Text(), normal);
    }
  }
}

struct Ipv6DeviceFiltersTest : testing::Test {
  void Store(int index, const std::string& text) {
    RegistrySupport(registry).SaveRegistryValue("Sentrel", "IPv6 Device Filters", index, text,
                                                false);
  }

  FakeRegistry registry;
};

TEST_F(Ipv6DeviceFiltersTest, HoldsWhatLiesBetweenItsBoundsOnItsInterface) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"2001:db8::/32", "2001:db8:ffff:ffff:ffff:ffff:ffff:ffff", true},
      {"2001:db8::/32", "2001:db9::", false},
      {"2001:db8::1-2001:db8::ff", "2001:db8::1", true},
      {"2001:db8::1-2001:db8::ff", "2001:db8::ff", true},
      {"2001:db8::1-2001:db8::ff", "2001:db8::100", false},
      {"::1", "0:0::1", true},
      {"fe80::/64", "fe80::1%eth0", true},
      {"fe80::%eth0/64", "fe80::1%eth0", true},
      {"fe80::%eth0/64", "fe80::1%eth1", false},
      {"fe80::%eth0/64", "fe80::1", false},
      {"::/0", "no address", false},
  };
  for (const auto& [filter, address, holds] : cases) {
    Ipv6DeviceFilters filters{RegistrySupport(registry)};
    EXPECT_FALSE(filters.AddressInFilters(address)) << "an empty list holds none";
    ASSERT_TRUE(filters.AddFilter(filter));
    EXPECT_EQ(filters.AddressInFilters(address), holds) << filter << " " << address;
  }
}

TEST_F(Ipv6DeviceFiltersTest, IsKeptInASectionOfItsOwnUpToTwoHundred) {
  Settings settings(registry);
  Ipv6DeviceFilters& filters = *settings.Ipv6DeviceFilters();
  for (int i = 0; i < 201; ++i)
    for (int twice = 0; twice < 2; ++twice) filters.AddFilter("2001:db8::" + std::to_string(i));
  filters.Sync();
  EXPECT_EQ(Settings(registry).Ipv6DeviceFilters()->Count(), 200);
  EXPECT_THAT(Settings(registry).DeviceFilters()->Keys(), IsEmpty());
  filters.Clear();
  filters.Sync();
  Store(1, "nonsense");
  Store(3, "::1");
  EXPECT_THAT(Settings(registry).Ipv6DeviceFilters()->Keys(), ElementsAre("::1"));
}

TEST_F(Ipv6DeviceFiltersTest, OnlyAFilledListLetsIpv6SendersPassAndOneThatCouldNotBeReadAll) {
  Settings settings(registry);
  settings.SetDeviceFilterActive(true);
  settings.DeviceFilters()->AddFilter("0.0.0.0-255.255.255.255");
  settings.DeviceFilters()->Sync();
  EXPECT_TRUE(settings.AcceptsDevice("10.0.0.1"));
  EXPECT_FALSE(settings.AcceptsDevice("::1"));
  settings.Ipv6DeviceFilters()->AddFilter("::1");
  EXPECT_TRUE(settings.AcceptsDevice("::1"));
  EXPECT_FALSE(settings.AcceptsDevice("::2"));
  settings.DeviceFilters()->Clear();
  EXPECT_TRUE(settings.AcceptsDevice("::1"));
  EXPECT_FALSE(settings.AcceptsDevice("10.0.0.1")) << "each kind of address has its own list";
  settings.SetDeviceFilterActive(false);
  EXPECT_TRUE(settings.AcceptsDevice("::2"));

  settings.SetDeviceFilterActive(true);
  registry.unreadable = {UpperCase("Software\\VarnholtNet\\Sentrel\\IPv6 Device Filters")};
  Settings later(registry);
  EXPECT_TRUE(later.DeviceFilterActive());
  EXPECT_TRUE(later.AcceptsDevice("::2")) << "what could not be read refuses nothing";
  later.Ipv6DeviceFilters()->AddFilter("::1");
  EXPECT_FALSE(later.AcceptsDevice("::2"));
}

}  // namespace
}  // namespace sentrel
