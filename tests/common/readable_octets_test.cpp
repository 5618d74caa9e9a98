#include "common/readable_octets.h"

#include <gtest/gtest.h>

#include <random>

#include "common/text.h"

namespace sentrel {
namespace {

using namespace std::string_view_literals;

TEST(ReadableOctets, AreTextsWithANulBehindThemOrInLatin1) {
  const std::pair<std::string_view, const char*> cases[] = {
      {"eth0\0"sv, "eth0"},
      {"Fan failed\r\n\0"sv, "Fan failed\r\n"},
      {"Gr\xC3\xBC\xC3\x9F\x65\0"sv, "Grüße"},
      {"nul\0"sv, "nul"},
      {"PSU\0"sv, "PSU"},
      {"up\0"sv, "up"},
      {"Ger\xE4t", "Gerät"},
      {"Ger\xE4t\0"sv, "Gerät"},
      {"Z\xFCrich", "Zürich"},
      {"\xC9LECTRIQUE", "ÉLECTRIQUE"},
      {"STRA\xDF\x45", "STRAßE"},
      {"\xD6\x66\x66nungszeit", "Öffnungszeit"},
      {"d\xE9\x63onnect\xE9\x65", "déconnectée"},
      {"T\xFCr im B\xFCro 12 ge\xF6\x66\x66net", "Tür im Büro 12 geöffnet"},
      {"Temp 45\xB0\x43", "Temp 45°C"},
      {"Interface GigabitEthernet0/1 gest\xF6rt", "Interface GigabitEthernet0/1 gestört"},
      {"Alimentation \xE0 l'arr\xEAt", "Alimentation à l'arrêt"},
  };
  for (const auto& [octets, text] : cases) EXPECT_EQ(ReadableOctets(octets), text);
}

TEST(ReadableOctets, AreNothingThatMayBeAnAddressATimeOrBits) {
  const char* const cases[] = {
      "",
      "00",
      "4100",                              // one letter, or BITS
      "400000",                            // BITS
      "6000",                              // BITS
      "2020202000",                        // BITS
      "80",                                // BITS
      "C0",                                // BITS, À
      "E4F6",                              // BITS, äö
      "F0C0E0A0F8",                        // BITS, all of them printable
      "C0A80107",                          // 192.168.1.7
      "C8D2DCE6",                          // 200.210.220.230, ÈÒÜæ
      "52FC6265",                          // 82.252.98.101, Rübe
      "40404000",                          // 64.64.64.0
      "646D7A00646D7A00",                  // two networks
      "001B2144E4F6",                      // MAC addresses
      "F4CE46A1B2C3",                      // ôÎF¡²Ã
      "E44E2DB06173",                      // äN-°as
      "D46D6D504142",                      // ÔmmPAB
      "44E44C4F6E67",                      // DäLOng
      "0011223344FFFE55",                  // EUI-64
      "44E46C6CFFFE4F47",                  // EUI-64
      "500604A0D0E0F0E8",                  // a worldwide name
      "07EA0B170F312505",                  // DateAndTime
      "07EA0B170F3125002B0230",            // DateAndTime with its zone
      "20010DB8000000000000000000000001",  // 2001:db8::1
      "FE80E4E4E4E4E4E4416C6C6573204F4B",  // an address of IPv6, some of it letters
      "80001F8804616C6C6573",              // engine ID with a text
      "8000000903616C6C6573C3",            // engine ID with a MAC address
      "B4CCBFCDC9FAB4E6",                  // text of another code
      "53D7B4CCACB1E4BBAF204F4B206F6B",    // ASCII with text of another code
      "4765729374206465666563",            // a control character of ISO 8859-1
      "476572E400",                        // too short without its NUL
      "4765727400747400",                  // more than one NUL
      "E9E8EAEBE0E2F4FBEEEF",              // hardly a word
      "4748494A00E4",                      // a NUL in front
  };
  for (const char* const hex : cases) EXPECT_EQ(ReadableOctets(*FromHex(hex)), std::nullopt) << hex;
}

/// Addresses, hashes and keys are as good as random.
TEST(ReadableOctets, AreHardlyEverRandom) {
  std::mt19937 random(7);
  for (const size_t size : {4, 6, 8, 16, 20}) {
    int texts = 0;
    for (int i = 0; i < 100'000; ++i) {
      std::string octets;
      while (octets.size() < size) octets += static_cast<char>(random());
      texts += ReadableOctets(octets).has_value();
    }
    EXPECT_LE(texts, 10) << size;
  }
}

}  // namespace
}  // namespace sentrel
