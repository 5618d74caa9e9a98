#include "common/visible_text.h"

#include <gtest/gtest.h>

namespace sentrel {
namespace {

using namespace std::string_view_literals;

TEST(VisibleText, ShowsWhatHidesReordersOrBreaks) {
  const std::pair<std::string_view, const char*> cases[] = {
      {"a\0\x1b[31m\x7F"sv, "a␀␛[31m␡"},
      {"admin\u202Egpj.exe", "admin<U+202E>gpj.exe"},
      {"\u2066x\u2069\u200E\u200F\u061C", "<U+2066>x<U+2069><U+200E><U+200F><U+061C>"},
      {"\uFEFFpass\u00ADword\u200B\u2060", "<U+FEFF>pass<U+00AD>word<U+200B><U+2060>"},
      {"x\U000E0041\U000E007F\U000E0100", "x<U+E0041><U+E007F><U+E0100>"},
      {"a\u2028b\u2029c\xC2\x85", "a<U+2028>b<U+2029>c<U+0085>"},
      {"\u3164\u115F\uFFA0\u034F\u180E\u2800", "<U+3164><U+115F><U+FFA0><U+034F><U+180E><U+2800>"},
      {"\uFFF9\uFFFC\uFDD0\uFFFF\U0010FFFE", "<U+FFF9><U+FFFC><U+FDD0><U+FFFF><U+10FFFE>"},
      {"pay\u200Dpal\u200C.com\uFE0F", "pay<U+200D>pal<U+200C>.com<U+FE0F>"},
      {"می\u200C\u200Cخواهم", "می<U+200C><U+200C>خواهم"},
      {"می\u200C", "می<U+200C>"},
      {"ᠠ\u200D\u180B", "ᠠ<U+200D><U+180B>"},
      {"❤️\uFE0F👩\u200D", "❤️<U+FE0F>👩<U+200D>"},
      {"\xC3(", "\uFFFD("},
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},  // half of a surrogate pair
      {"\xE2\x82", "\uFFFD\uFFFD"},
  };
  for (const auto& [text, shown] : cases) {
    EXPECT_EQ(VisibleText(std::string(text)), shown);
    EXPECT_EQ(VisibleText(shown), shown);
  }
}

TEST(VisibleText, LeavesWritingAlone) {
  for (const char* text :
       {"", "eth0\tis\r\ndown", "Gerät °C \u00A0", "日本語\u3000", "e\u0301", "\uFFFD",
        "می\u200Cخواهم", "क्\u200Dष", "ක්\u200Dර", "ᠨ\u180Bᠠ", "👩‍👩‍👧", "🏳️‍🌈",
        "👍🏽", "❤️", "1️⃣", "©️"}) {
    EXPECT_EQ(VisibleText(text), text);
  }
}

TEST(VisibleText, EscapesWithinJson) {
  EXPECT_EQ(VisibleJson("\"ä\u202E\U000E0041\x7F\""), R"("ä\u202E\uDB40\uDC41\u007F")");
}

}  // namespace
}  // namespace sentrel
