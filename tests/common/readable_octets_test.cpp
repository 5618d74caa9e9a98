#include "common/readable_octets.h"

#include <gtest/gtest.h>

#include <random>

#include "fakes/table_file.h"

namespace sentrel {
namespace {

using namespace std::string_view_literals;

TEST(ReadableOctets, AreTextsUnlessTheyMayBeAnAddressATimeOrBits) {
  const auto rows = RowsOf(TEST_DATA "/common/readable_octets.txt");
  EXPECT_GT(rows.size(), 50U);
  for (const auto& row : rows) {
    const std::string octets = FromHex(row.at(0)).value();
    EXPECT_EQ(ReadableOctets(octets).value_or(""), row.at(1)) << octets << " " << row.at(2);
  }
  EXPECT_EQ(ReadableOctets("Fan failed\r\n\0"sv), "Fan failed\r\n");
  EXPECT_EQ(ReadableOctets(""), std::nullopt);
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
