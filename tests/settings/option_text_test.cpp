#include "settings/option_text.h"

#include <gtest/gtest.h>

namespace sentrel {
namespace {

TEST(OptionText, IsTheTextOfAnyValue) {
  EXPECT_EQ(OptionText(true).Text(), "True");
  EXPECT_EQ(OptionText(false).Text(), "False");
  EXPECT_EQ(OptionText(7).Text(), "7");
  EXPECT_EQ(OptionText(INT32_MIN).Text(), "-2147483648");
  EXPECT_EQ(OptionText("x.log").Text(), "x.log");
}

TEST(ReadBoolean, TakesWordsAndNumbers) {
  for (const char* text : {"True", "TRUE", "true", " True ", "1", "-1", "250"})
    EXPECT_EQ(ReadBoolean(text), true) << text;
  for (const char* text : {"False", "fAlSe", "0", "-0", " 00 "})
    EXPECT_EQ(ReadBoolean(text), false) << text;
  for (const char* text : {"", " ", "yes", "Tru", "Truee", "1x", "0.5", "99999999999"})
    EXPECT_EQ(ReadBoolean(text), std::nullopt) << text;
}

TEST(ReadLong, TakesWholeNumbersOf32Bits) {
  const std::pair<const char*, std::int32_t> numbers[] = {
      {"250", 250}, {" 0250 ", 250}, {"+7", 7}, {"-5", -5}, {"2147483647", INT32_MAX}};
  for (const auto& [text, number] : numbers) EXPECT_EQ(ReadLong(text), number) << text;
  for (const char* text : {"", "+", "-", "+-5", "1e3", "0x10", "12 3", "2147483648", "1.5", "True"})
    EXPECT_EQ(ReadLong(text), std::nullopt) << text;
}

}  // namespace
}  // namespace sentrel
