#include "snmp/octet_text.h"

#include <gtest/gtest.h>

#include "fakes/table_file.h"
#include "snmp/ber.h"

namespace sentrel {
namespace {

std::string TextOf(std::string_view octets) {
  return OctetText(ber::BytesOf(octets));
}

TEST(OctetText, IsTextOnlyWhereEveryCharacterIsPlain) {
  for (const char* text :
       {"", "plain\ttext\r\n", "\xC3\xA9", "\xF0\x9F\x94\x94", "\xF4\x8F\xBF\xBF", "\xC2\xA0"}) {
    EXPECT_EQ(TextOf(text), text);
  }
  for (const auto& row : RowsOf(TEST_DATA "/snmp/octets.txt")) {
    EXPECT_EQ(TextOf(FromHex(row.at(0)).value()), "0x" + row[0]) << row.at(1);
  }
}

}  // namespace
}  // namespace sentrel
