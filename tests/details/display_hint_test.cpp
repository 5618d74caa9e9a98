#include "details/display_hint.h"

#include <gtest/gtest.h>

#include "snmp/ber.h"

namespace sentrel {
namespace {

using namespace std::string_literals;

TEST(DisplayHint, OfIntegers) {
  const struct {
    const char* hint;
    std::int64_t number;
    std::optional<std::string> text;
  } cases[] = {
      {"d", -7, "-7"},       {"d-2", 1234, "12.34"},
      {"d-2", 5, "0.05"},    {"d-2", -5, "-0.05"},
      {"d-0", 5, "5"},       {"d-3", 1000, "1.000"},
      {"x", 255, "ff"},      {"o", 8, "10"},
      {"b", 5, "101"},       {"d-", 5, {}},
      {"d-x", 5, {}},        {"d-2x", 5, {}},
      {"d-99999999", 5, {}}, {"", 5, {}},
      {"1x:", 5, {}},        {"d-1", -9223372036854775807 - 1, "-922337203685477580.8"},
  };
  for (const auto& [hint, number, text] : cases) {
    EXPECT_EQ(IntegerByHint(hint, number), text) << hint << " " << number;
  }
}

TEST(DisplayHint, OfOctets) {
  const struct {
    const char* hint;
    std::string octets;
    std::optional<std::string> text;
  } cases[] = {
      {"1x:", "\x00\x1a\x2b"s, "00:1a:2b"},
      {"1x:", "", ""},
      {"255a", "eth0", "eth0"},
      {"4a-", "abcdef", "abcd-ef"},
      {"1d.1d.1d.1d/2d", "\xc0\x00\x02\x07\x00\xa2"s, "192.0.2.7/162"},
      {"2x:", "\x20\x01\x0d\xb8\x00"s, "2001:0db8:00"},
      {"2d-1d-1d,1d:1d:1d.1d,1a1d:1d", "\x07\xea\x0b\x18\x02\x1f\x25\x01-\x03\x1e"s,
       "2026-11-24,2:31:37.1,-3:30"},
      {"0a[2x:2x:2x:2x:2x:2x:2x:2x0a]0a:2d", "\xfe\x80"s + std::string(13, '\0') + "\x01\x00\xa1"s,
       "[fe80:0000:0000:0000:0000:0000:0000:0001]:161"},
      // Repeated: the count is in front, and a separator is left out before the terminator.
      {"*1x:/1x:", "\x02\xab\xcd\xef"s, "ab:cd/ef"},
      {"*1d.;1d", "\x02\x01\x02\x01\x03"s, "1.2;13"},
      {"*1d.", "\x05\x01\x02"s, "1.2"},
      {"*1d.", "\x00\x01\x07"s, "7"},
      {"1o ", "\x08\x09"s, "10 11"},
      // A character that is cut off is left out.
      {"2t", "\xc3\xa4\xc3"s, "\xc3\xa4"},
      {"0a:", "x", {}},
      {"*0a:", "\x09x", {}},
      {"9d", "123456789", {}},
      {"8d", "\x00\x00\x00\x00\x00\x00\x01\x00"s, "256"},
      {"d", "x", {}},
      {"1", "x", {}},
      {"1q", "x", {}},
      {"*", "x", {}},
      {"999999a", "x", {}},
      {"", "x", {}},
  };
  for (const auto& [hint, octets, text] : cases) {
    EXPECT_EQ(OctetsByHint(hint, ber::BytesOf(octets)), text) << hint;
  }
}

}  // namespace
}  // namespace sentrel
