#include "settings/ip_functions.h"

#include <gtest/gtest.h>

#include <random>

namespace sentrel {
namespace {

TEST(IsIPAddress, TakesFourPartsOfPlainDigits) {
  for (const char* address : {"10.0.1.23", "010.000.001.023", "0.0.0.0", "255.255.255.255",
                              "0000010.0.0.0000000000000000000255"})
    EXPECT_TRUE(IsIPAddress(address)) << address;
  for (const char* text :
       {"", "10.0.1", "10.0.1.23.4", "10.0.1.", "10..1.23", "10.0.1.256", "10.0.1.x", "99999.0.0.1",
        ".0.0.1.2", "...", " 10.0.1.23", "10.0.1.23 ", "10.0.-1.23", "10.0.+1.23", "10.0.1.1e1",
        "10.0.1.0x1", "::ffff:1.2.3.4", "10.0.1.4294967297", "10.0.1.\t1"})
    EXPECT_FALSE(IsIPAddress(text)) << text;
}

TEST(MaskOfPrefixLength, TakesTheNearerEndOutsideTheTable) {
  for (const int length : {-32768, -1})
    EXPECT_EQ(MaskOfPrefixLength(static_cast<std::int16_t>(length)), "0.0.0.0");
  for (const int length : {33, 32767})
    EXPECT_EQ(MaskOfPrefixLength(static_cast<std::int16_t>(length)), "255.255.255.255");
}

TEST(IPAddressToDouble, LaysThePartsSideBySide) {
  const std::pair<const char*, double> cases[] = {{"192.168.1.10", 192168001010.0},
                                                  {"010.000.001.023", 10000001023.0},
                                                  {"255.255.255.255", 255255255255.0},
                                                  {"0.0.0.1", 1.0},
                                                  {"10.0.1", 0.0},
                                                  {"", 0.0},
                                                  {" 1x0.0.1.2-3 ", 10000001023.0},
                                                  {"10.0.1.23.99", 10000001023.0},
                                                  {"10..1.23", 10000001023.0}};
  for (const auto& [address, expected] : cases)
    EXPECT_EQ(IPAddressToDouble(address), expected) << address;
}

TEST(HexAndLong, HoldTheFirstPartInTheTopByte) {
  EXPECT_EQ(IPAddressToHex("10.0.1.23"), "0A000117");
  EXPECT_EQ(IPAddressToHex("10.0.1.256"), "0A000100");
  EXPECT_EQ(IPAddressToHex("10.0.1"), "");
  const std::pair<const char*, const char*> hex[] = {{"A", "0.0.0.10"},
                                                     {"", "0.0.0.0"},
                                                     {"FFFFFF00", "255.255.255.0"},
                                                     {"99C0A8010A", "192.168.1.10"},
                                                     {"zz00fF1x", "0.0.255.1"}};
  for (const auto& [digits, address] : hex) EXPECT_EQ(HexToIPAddress(digits), address) << digits;
  EXPECT_EQ(IPAddressToLong("192.168.1.10"), -1062731510);
  EXPECT_EQ(IPAddressToLong("10.0.1"), 0);
  EXPECT_EQ(LongToIPAddress(INT32_MIN), "128.0.0.0");
  EXPECT_EQ(LongToIPAddress(1), "0.0.0.1");
}

TEST(RandomAddresses, SurviveEveryConversion) {
  std::mt19937 random(162);
  std::string before = "0.0.0.0";
  for (int i = 0; i < 20000; ++i) {
    const auto bits = static_cast<std::uint32_t>(random());
    const auto number = static_cast<std::int32_t>(bits);
    const std::string address = LongToIPAddress(number);
    ASSERT_TRUE(IsIPAddress(address));
    ASSERT_EQ(IPAddressToLong(address), number);
    ASSERT_EQ(HexToIPAddress(IPAddressToHex(address)), address);
    ASSERT_EQ(IPAddressToDouble(address) < IPAddressToDouble(before),
              bits < static_cast<std::uint32_t>(IPAddressToLong(before)));
    before = address;
  }
}

}  // namespace
}  // namespace sentrel
