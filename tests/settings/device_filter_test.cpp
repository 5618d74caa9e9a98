#include "settings/device_filter.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <random>

#include "common/text.h"
#include "settings/ip_functions.h"

namespace sentrel {
namespace {

DeviceFilter Parsed(const std::string& text) {
  DeviceFilter filter;
  filter.SetFilter(text);
  return filter;
}

void ExpectEmpty(const DeviceFilter& filter) {
  EXPECT_FALSE(filter.ValidFilter());
  EXPECT_EQ(filter.FilterType(), 0);
  EXPECT_EQ(filter.Filter() + filter.Description() + filter.BeginningAddress() +
                filter.EndingAddress() + filter.Subnet() + filter.Mask(),
            "");
  EXPECT_EQ(filter.BeginningAddressDouble(), 0);
  EXPECT_EQ(filter.EndingAddressdouble(), "0");
}

TEST(DeviceFilter, BringsEverySyntaxIntoNormalForm) {
  const struct {
    const char* text;
    int type;
    const char *normalForm, *beginning, *ending;
  } cases[] = {
      {"10.0.1.23", 1, "10.0.1.23", "10.0.1.23", "10.0.1.23"},
      {"1 0.0.1.23", 1, "10.0.1.23", "10.0.1.23", "10.0.1.23"},
      {"010.000.001.023", 1, "010.000.001.023", "010.000.001.023", "010.000.001.023"},
      {"x:y:10.0.1.23", 1, "10.0.1.23", "10.0.1.23", "10.0.1.23"},
      {"10.0.1.1 - 10.0.1.255", 2, "10.0.1.1-10.0.1.255", "10.0.1.1", "10.0.1.255"},
      {"10.0.1.5-10.0.1.5", 2, "10.0.1.5-10.0.1.5", "10.0.1.5", "10.0.1.5"},
      {"10.0.1.1-10.0.1.2-10.0.1.3", 2, "10.0.1.1-10.0.1.2", "10.0.1.1", "10.0.1.2"},
      {"010.0.1.1-10.0.1.002", 2, "010.0.1.1-10.0.1.002", "010.0.1.1", "10.0.1.002"},
      {"10.0.1.0/24", 3, "10.0.1.0/255.255.255.0", "10.0.1.0", "10.0.1.255"},
      {"10.0.1.0/255.255.255.0", 3, "10.0.1.0/255.255.255.0", "10.0.1.0", "10.0.1.255"},
      {"10.0.1.77/24", 3, "10.0.1.0/255.255.255.0", "10.0.1.0", "10.0.1.255"},
      {"10.0.1.0\\24", 3, "10.0.1.0/255.255.255.0", "10.0.1.0", "10.0.1.255"},
      {" 10.0.1.0 / 24 ", 3, "10.0.1.0/255.255.255.0", "10.0.1.0", "10.0.1.255"},
      {"10.0.1.0/24abc", 3, "10.0.1.0/255.255.255.0", "10.0.1.0", "10.0.1.255"},
      {"10.0.1.0/24/99", 3, "10.0.1.0/255.255.255.0", "10.0.1.0", "10.0.1.255"},
      {"010.000.001.077/24", 3, "10.0.1.0/255.255.255.0", "10.0.1.0", "10.0.1.255"},
      {"10.0.1.0/1", 3, "0.0.0.0/128.0.0.0", "0.0.0.0", "127.255.255.255"},
      {"10.0.1.0/32", 3, "10.0.1.0/255.255.255.255", "10.0.1.0", "10.0.1.0"},
      {"10.0.1.0/0.0.0.0", 3, "0.0.0.0/0.0.0.0", "0.0.0.0", "255.255.255.255"},
      {"200.0.1.9/30", 3, "200.0.1.8/255.255.255.252", "200.0.1.8", "200.0.1.11"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    const DeviceFilter filter = Parsed(c.text);
    EXPECT_TRUE(filter.ValidFilter());
    EXPECT_EQ(filter.FilterType(), c.type);
    EXPECT_EQ(filter.Filter(), c.normalForm);
    EXPECT_EQ(filter.BeginningAddress(), c.beginning);
    EXPECT_EQ(filter.EndingAddress(), c.ending);
    EXPECT_EQ(filter.BeginningAddressDouble(), IPAddressToDouble(c.beginning));
    EXPECT_EQ(filter.EndingAddressdouble(), fmt::format("{:.0f}", IPAddressToDouble(c.ending)));
    EXPECT_EQ(filter.Subnet().empty(), c.type != 3);
    EXPECT_EQ(filter.Mask().empty(), c.type != 3);
    EXPECT_EQ(Parsed(filter.Description()).Filter(), c.normalForm);
  }
}

TEST(DeviceFilter, LeavesAnEmptyObjectForAnyOtherText) {
  ExpectEmpty(DeviceFilter());
  constexpr std::string_view kNoFilters =
      ",-,/,\\,:, ,10.0.1,10.0.1/24,10.0.1-10.0.2,10.0.1.256,10.0.1.1-10.0.1.999,"
      "10.0.1.255-10.0.1.1,10.0.1.0/0,10.0.1.0/33,10.0.1.0/,10.0.1.0/abc,10.0.1.0/255.0.255.0,"
      "10.0.1.0/255.255.255.000,10.0.1.0/99999,10.0.1.0/99999999999999999999,/24,10.0.1.23:162,"
      "10.0.1.0/24-10.0.2.0,10.0.1.1-,-10.0.1.1,10.0.1.\t23,fe80::1";
  for (const std::string_view text : Split(kNoFilters, ",")) {
    SCOPED_TRACE(text);
    DeviceFilter filter = Parsed("10.0.1.0/24");
    filter.SetFilter(std::string(text));
    ExpectEmpty(filter);
  }
}

TEST(DeviceFilter, BothBoundsBelongToIt) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"10.0.1.0/24", "10.0.1.0", true},         {"10.0.1.0/24", "10.0.1.255", true},
      {"10.0.1.0/24", "10.0.0.255", false},      {"10.0.1.0/24", "10.0.2.0", false},
      {"10.0.1.1-10.0.1.255", "10.0.1.1", true}, {"10.0.1.1-10.0.1.255", "10.0.1.0", false},
      {"010.000.001.023", "10.0.1.23", true},    {"10.0.1.0/0.0.0.0", "255.255.255.255", true},
      {"0.0.0.0/1", "128.0.0.0", false}};
  for (const auto& [text, address, inside] : cases)
    EXPECT_EQ(Parsed(text).AddressInFilter(std::string(address)), inside) << text << " " << address;
}

TEST(RandomFilters, AgreeWith32BitComparison) {
  std::mt19937 random(42);
  const auto text = [](std::uint32_t bits) {
    return LongToIPAddress(static_cast<std::int32_t>(bits));
  };
  for (int i = 0; i < 5000; ++i) {
    const auto first = static_cast<std::uint32_t>(random());
    const auto second = first + static_cast<std::uint32_t>(random()) % 100000;
    const auto address = first - 1000 + static_cast<std::uint32_t>(random()) % 102000;
    const auto length = 1 + static_cast<unsigned>(random()) % 32;
    const DeviceFilter range = Parsed(fmt::format("{} - {}", text(first), text(second)));
    ASSERT_EQ(range.ValidFilter(), first <= second);
    ASSERT_EQ(range.AddressInFilter(text(address)), first <= address && address <= second);
    ASSERT_EQ(Parsed(range.Filter()).Filter(), range.Filter());
    const DeviceFilter subnet = Parsed(fmt::format("{}/{}", text(first), length));
    ASSERT_EQ(subnet.AddressInFilter(text(address)), ((first ^ address) >> (32 - length)) == 0)
        << subnet.Filter() << " " << text(address);
    ASSERT_EQ(Parsed(subnet.Filter()).Filter(), subnet.Filter());
  }
}

}  // namespace
}  // namespace sentrel
