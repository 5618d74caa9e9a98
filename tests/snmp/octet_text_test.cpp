#include "snmp/octet_text.h"

#include <gtest/gtest.h>

#include <string_view>

#include "snmp/ber.h"

namespace sentrel {
namespace {

using namespace std::string_view_literals;

std::string TextOf(std::string_view octets) {
  return OctetText(ber::BytesOf(octets));
}

TEST(OctetText, IsTextOnlyWhereEveryCharacterIsPlain) {
  for (const char* text :
       {"", "plain\ttext\r\n", "\xC3\xA9", "\xF0\x9F\x94\x94", "\xF4\x8F\xBF\xBF", "\xC2\xA0"}) {
    EXPECT_EQ(TextOf(text), text);
  }
  const std::pair<std::string_view, const char*> others[] = {
      {"nul\0"sv, "0x6E756C00"},
      {"\x1B", "0x1B"},
      {"\x7F", "0x7F"},
      {"\xC2\x85", "0xC285"},              // a control character beyond ASCII
      {"\xC0\x80", "0xC080"},              // longer than need be
      {"\xE0\x9F\xBF", "0xE09FBF"},        // the same in three octets
      {"\xED\xA0\x80", "0xEDA080"},        // half of a surrogate pair
      {"\xF4\x90\x80\x80", "0xF4908080"},  // beyond the last character
      {"\xF8\x88\x80\x80\x80", "0xF888808080"},
      {"a\xE2\x82", "0x61E282"},  // cut off
      {"\x80", "0x80"},
  };
  for (const auto& [octets, text] : others) EXPECT_EQ(TextOf(octets), text);
}

}  // namespace
}  // namespace sentrel
