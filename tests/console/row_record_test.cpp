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
  EXPECT_EQ(std::tie(read.SourceAddress, read.Community, read.OIDs, read.DataTypes, read.Values),
            std::tie(trap.SourceAddress, trap.Community, trap.OIDs, trap.DataTypes, trap.Values))
      << record;
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
  std::vector<std::string> texts{std::string(60 * 1024, ':')};
  for (const std::string_view hard : Split(kHard, "|")) texts.emplace_back(hard);
  std::mt19937 random(20261205);
  const std::string letters = "::==\\\\\r\n1a\t";
  for (int i = 0; i < 20'000; ++i) {
    std::string& text = texts.emplace_back();
    for (unsigned length = random() % 9; length > 0; --length)
      text += letters[random() % letters.size()];
  }
  for (const std::string& text : texts) {
    Trap trap{text, text, {}, {}, {}};
    ExpectSurvives(trap);
    Add(trap, "1.3.6.1", 4, text);
    Add(trap, "1.3.6.2", -1, "");
    Add(trap, "1.3.6.3", 2147483647, text);
    ExpectSurvives(trap);
  }
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
