#include "details/value_words.h"

#include <gtest/gtest.h>

namespace sentrel {
namespace {

using namespace std::string_literals;

TEST(ValueWords, Durations) {
  const std::pair<std::uint32_t, const char*> cases[] = {
      {0, "0.00 seconds"},
      {4711, "47.11 seconds"},
      {6'000, "1 minute, 0.00 seconds"},
      {18'366'705, "2 days, 3 hours, 1 minute, 7.05 seconds"},
      {4'294'967'295, "497 days, 2 hours, 27 minutes, 52.95 seconds"},
  };
  for (const auto& [hundredths, words] : cases) EXPECT_EQ(DurationWords(hundredths), words);
}

TEST(ValueWords, DateAndTime) {
  const std::pair<std::string, const char*> cases[] = {
      {"\x07\xea\x0b\x18\x02\x1f\x25\x01", "2026-11-24 02:31:37.1"},
      {"\x07\xea\x0b\x18\x02\x1f\x25\x01-\x03\x1e", "2026-11-24 02:31:37.1 UTC-03:30"},
      {"\x07\xea\x0b\x18\x02\x1f\x25\x01+\x0e\x00"s, "2026-11-24 02:31:37.1 UTC+14:00"},
      {"\x07\xea\x0d\x18\x02\x1f\x25\x01", ""},
      {"\x07\xea\x0b\x18\x18\x1f\x25\x01", ""},
      {"\x07\xea\x0b\x18\x02\x1f\x25\x01*\x03\x1e", ""},
      {"\x07\xea\x0b", ""},
      {"", ""},
  };
  for (const auto& [octets, words] : cases) {
    EXPECT_EQ(DateAndTimeWords(ber::BytesOf(octets)), words);
  }
}

}  // namespace
}  // namespace sentrel
