#include "console/row_record.h"

#include <gtest/gtest.h>

#include <random>

#include "common/failure.h"
#include "common/text.h"

namespace sentrel {
namespace {

void Add(Trap& trap, const std::string& oid, int type, const std::string& value) {
  trap.OIDs.push_back(oid);
  trap.DataTypes.push_back(type);
  trap.Values.push_back(value);
}

void ExpectSurvives(const Trap& trap) {
  const std::string record = RowRecord(trap);
  const Trap read = ReadRowRecord(record);
  EXPECT_EQ(read.SourceAddress, trap.SourceAddress) << record;
  EXPECT_EQ(read.Community, trap.Community) << record;
  EXPECT_EQ(read.OIDs, trap.OIDs) << record;
  EXPECT_EQ(read.DataTypes, trap.DataTypes) << record;
  EXPECT_EQ(read.Values, trap.Values) << record;
}

TEST(RowRecord, EscapesOnlyWhatWouldBreakIt) {
  const std::pair<const char*, const char*> cases[] = {{"plain = text", "plain = text"},
                                                       {"a:b", "a:b"},
                                                       {"a::b", "a\\:\\:b"},
                                                       {":a", "\\:a"},
                                                       {"a:", "a\\:"},
                                                       {"C:\\x", "C:\\\\x"},
                                                       {"", ""}};
  for (const auto& [value, field] : cases) {
    Trap trap{"fe80::1", "public", {}, {}, {}};
    Add(trap, "1.2", 4, value);
    EXPECT_EQ(RowRecord(trap),
              std::string("SOURCEIP=fe80\\:\\:1::COMMUNITY=public::1.2=4=") + field);
  }
}

TEST(RowRecord, EveryTextSurvivesAtEveryPlace) {
  constexpr std::string_view kHard =
      "|=|::|:|:::|a::b|=:|\\|\\:|:\\|\\\\|::1|:a|a:|2001:db8::|a\r\n::|fe80::1%eth0:|\\::\\|ü:|"
      "=4=x|::1.3=4=x|COMMUNITY=x::";
  for (const std::string_view hard : Split(kHard, "|")) {
    const std::string text(hard);
    Trap trap{text, text, {}, {}, {}};
    ExpectSurvives(trap);
    Add(trap, "1.3.6.1", 4, text);
    Add(trap, "1.3.6.2", -1, "");
    Add(trap, "1.3.6.3", 2147483647, text);
    ExpectSurvives(trap);
  }
}

TEST(RowRecord, ArbitraryTextsSurvive) {
  std::mt19937 random(20261205);
  const std::string letters = "::==\\\\\r\n1a\t";
  const auto text = [&](size_t length) {
    std::string value;
    while (value.size() < length) value += letters[random() % letters.size()];
    return value;
  };
  for (int round = 0; round < 20'000; ++round) {
    Trap trap{text(random() % 6), text(random() % 6), {}, {}, {}};
    for (unsigned i = random() % 4; i > 0; --i) Add(trap, "1.3", 4, text(random() % 9));
    ExpectSurvives(trap);
  }
  Trap large{"::1", "public", {}, {}, {}};
  for (int i = 0; i < 2; ++i) Add(large, "1.3.6.1", 4, text(60 * 1024));
  ExpectSurvives(large);
}

TEST(RowRecord, WhatIsNoRecordIsRefused) {
  for (const char* text :
       {"", "x", "SOURCEIP", "SOURCEIP=a::", "SOURCEIP=a::COMMUNITY=b::1.3", "SOURCEIP=a::1.3=4",
        "SOURCEIP=a::1.3=four=x", "SOURCEIP=a::1.3==x", "SOURCEIP=a::1.3=4 =x",
        "SOURCEIP=a::1.3=99999999999=x", "SOURCEIP=a\\", "sourceip=a"}) {
    EXPECT_THROW(ReadRowRecord(text), Failure) << text;
  }
}

}  // namespace
}  // namespace sentrel
